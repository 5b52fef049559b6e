// One line below a field that says what is wrong with it, beside a button that mends it where that is possible. It
// gives the field a red edge and tells screen readers the same. Refers to the field; takes nothing away from the checks
// that follow when the form is closed.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

class FieldHint final : public QWidget {
    Q_OBJECT
  public:
    /// The button is named after the field.
    explicit FieldHint(QLineEdit& field);

    /// A button that would mend the field; none without a caption.
    struct Offer {
        QString caption;
        std::function<void()> take;
    };
    void Object(const QString& text, const Offer& offer = {});
    void Clear();

  private:
    QLineEdit& m_field;
    QLabel* m_text;
    QPushButton* m_button;
    std::function<void()> m_take;
};

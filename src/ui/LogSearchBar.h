// The bar below a log in which the user says what to look for. It finds nothing itself; hidden until it is opened.
#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class StringTable;

class LogSearchBar final : public QWidget {
    Q_OBJECT
  public:
    explicit LogSearchBar(const StringTable& texts);

    /// Shows the bar; `text`, when not empty, is offered.
    void Open(const QString& text);
    /// Emits Wanted when there is a text, else opens the bar.
    void SearchOn(bool isBackwards);
    void Say(const QString& notice);

  Q_SIGNALS:
    void Wanted(const QString& text, Qt::CaseSensitivity matchCase, bool isBackwards);
    void Closed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void closeBar();

    const StringTable& m_texts;
    QLineEdit* m_text;
    QCheckBox* m_matchCase;
    QLabel* m_notice;
};

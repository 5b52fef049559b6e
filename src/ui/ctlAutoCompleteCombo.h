// A line to type in that offers what was used before, in its list and while one types. Owns the offers; never fails.
#pragma once

#include <QComboBox>
#include <QStringList>

class ctlAutoCompleteCombo final : public QComboBox {
    Q_OBJECT
  public:
    explicit ctlAutoCompleteCombo(QWidget* parent = nullptr);

    /// Adds offers at the end; the typed text stays.
    void Offer(const QStringList& texts);

    /// Offers nothing any more; the typed text stays.
    void Forget();

    [[nodiscard]] QString Text() const { return currentText(); }
    void SetText(const QString& text) { setEditText(text); }
};

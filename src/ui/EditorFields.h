// The fields of the activity editor that Qt does not have: a date or time with a place for each digit, a line that
// offers what was used before, a line that is sometimes not wanted. Each owns its text; any text is accepted.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QStringList>

/// A line for a date or a time, with a place for each digit. Shows what is typed, right or wrong.
class MaskedField final : public QLineEdit {
    Q_OBJECT
  public:
    /// `format` as QDate and QTime spell it; every letter becomes the place of a digit.
    explicit MaskedField(const QString& format, QWidget* parent = nullptr);

    /// The text with a blank for every missing digit.
    [[nodiscard]] QString Shown() const;

    /// No digit at all.
    [[nodiscard]] bool IsBlank() const;

    /// No digit is missing.
    [[nodiscard]] bool IsFull() const;

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

/// A line to type in. It offers texts that were used before, in its list and while one types.
class ctlAutoCompleteCombo final : public QComboBox {
    Q_OBJECT
  public:
    explicit ctlAutoCompleteCombo(QWidget* parent = nullptr);

    /// Adds offers at the end; the typed text stays.
    void Offer(const QStringList& texts);

    /// Drops all offers; the typed text stays.
    void Forget();

    [[nodiscard]] QString Text() const { return currentText(); }
    void SetText(const QString& text) { setEditText(text); }
};

/// Empties and disables a line while it is not wanted, and restores its text afterwards. Refers to the line.
class SwitchableText final {
  public:
    explicit SwitchableText(QLineEdit& line) : m_line(line) {}

    void SetWanted(bool wanted);

  private:
    QLineEdit& m_line;
    QString m_kept;
    bool m_wanted = true;
};

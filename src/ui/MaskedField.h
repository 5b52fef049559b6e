// A line for a date or a time, with a place for each digit. Owns its text; whatever is typed is shown, right or wrong.
#pragma once

#include <QLineEdit>

class MaskedField final : public QLineEdit {
    Q_OBJECT
  public:
    /// `format` as QDate and QTime spell it; every letter becomes the place of a digit.
    explicit MaskedField(const QString& format, QWidget* parent = nullptr);

    /// The text with a blank for every digit that is missing.
    [[nodiscard]] QString Shown() const;

    /// No digit at all.
    [[nodiscard]] bool IsBlank() const;

    /// Every digit is there.
    [[nodiscard]] bool IsFull() const;

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
};

// Asks what to search for in the list. It has no side effects.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class StringTable;

class frmSearch final : public QDialog {
    Q_OBJECT
  public:
    /// Begins with the last search.
    frmSearch(const StringTable& texts, const QString& text, bool matchCase, QWidget* parent = nullptr);

    [[nodiscard]] QString SearchText() const;
    [[nodiscard]] bool MatchCase() const;

  private:
    QLineEdit* m_text;
    QCheckBox* m_matchCase;
};

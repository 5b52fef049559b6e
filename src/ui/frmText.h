// A text to read and to copy, a report for one. A form without side effects but the clipboard.
#pragma once

#include <QDialog>

class StringTable;

class frmText final : public QDialog {
    Q_OBJECT
  public:
    frmText(const StringTable& texts, const QString& title, const QString& text, QWidget* parent = nullptr);
};

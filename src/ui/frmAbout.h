// The about box: name, version and legal notice. It has no side effects: the caller decides what its link and its
// button do.
#pragma once

#include <QDialog>

class StringTable;

class frmAbout final : public QDialog {
    Q_OBJECT
  public:
    explicit frmAbout(const StringTable& texts, QWidget* parent = nullptr);

  Q_SIGNALS:
    void HomePageWanted();
    void SystemInformationWanted();
};

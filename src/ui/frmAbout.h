// The about box: name, version and legal notice. A form without side effects: what its link and its button do is up to
// whoever shows it.
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

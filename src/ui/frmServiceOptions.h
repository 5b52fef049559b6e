// "Service settings": installs, removes, starts and stops the service. Owns its widgets; each button hands its command
// word on, and the dialog knows nothing of services.
#pragma once

#include <QDialog>

class StringTable;

class frmServiceOptions final : public QDialog {
    Q_OBJECT
  public:
    explicit frmServiceOptions(const StringTable& texts, QWidget* parent = nullptr);

  Q_SIGNALS:
    /// "install", "uninstall", "startservice" or "stopservice".
    void Chosen(const QString& word);
};

// The service dialog: installs, removes, starts and stops the service, and shows its state. Owns its widgets; each
// button emits its command word, and the dialog itself knows nothing of services.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class StringTable;

class frmServiceOptions final : public QDialog {
    Q_OBJECT
  public:
    explicit frmServiceOptions(const StringTable& texts, QWidget* parent = nullptr);

    /// A request is under way: the buttons wait for ShowState.
    void ShowWorking();
    void ShowState(const QString& text);

  Q_SIGNALS:
    /// "install", "uninstall", "startservice" or "stopservice".
    void Chosen(const QString& word);

  private:
    void setButtonsEnabled(bool enabled);

    const StringTable& m_texts;
    QLabel* m_state;
    QList<QPushButton*> m_buttons;
};

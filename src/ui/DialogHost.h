// Shows the dialogs of the main window's commands. Owns nothing but the list of those that are open. Once it has been
// told that nobody is waited for any more, every dialog ends cancelled at once.
#pragma once

#include <QPointer>
#include <vector>

class QDialog;
class QWidget;

class DialogHost final {
  public:
    /// Dialogs stand in front of this window while it is visible; otherwise they stand alone.
    void SetWindow(QWidget* window) { m_window = window; }
    [[nodiscard]] QWidget* Parent() const;

    /// True when a dialog is open already: it is brought to the front. The menu of the tray icon can be used while a
    /// dialog is open, so a command that opens one asks this first.
    [[nodiscard]] bool RaiseOpen() const;

    /// Shows the dialog modally and returns how it ended (QDialog::DialogCode).
    int Run(QDialog& dialog);

    /// Cancels the open dialogs, the innermost first, and opens no more.
    void StopWaiting();
    [[nodiscard]] bool IsWaiting() const { return m_waiting; }

  private:
    QPointer<QWidget> m_window;
    std::vector<QDialog*> m_open;
    bool m_waiting = true;
};

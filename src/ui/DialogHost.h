// Shows the dialogs of the main window's commands. Owns nothing but the list of those that are open. Once it has been
// told that nobody is waited for any more, every dialog ends cancelled at once.
#pragma once

#include <QPointer>
#include <functional>
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

    /// Asks the user about what would be lost when the dialog ended now; false when it has to stay.
    using MayEnd = std::function<bool()>;

    /// Shows the dialog modally and returns how it ended (QDialog::DialogCode).
    int Run(QDialog& dialog, const MayEnd& mayEnd = nullptr);

    /// Whether all open dialogs may end. Events run; no dialog is destroyed meanwhile, for each waits below us.
    [[nodiscard]] bool MayAllEnd() const;

    /// Ends the open dialogs without a question, the innermost first, and opens no more.
    void StopWaiting();
    [[nodiscard]] bool IsWaiting() const { return m_waiting; }

  private:
    struct Open {
        QDialog* dialog;
        MayEnd mayEnd;
    };
    QPointer<QWidget> m_window;
    std::vector<Open> m_open;
    bool m_waiting = true;
};

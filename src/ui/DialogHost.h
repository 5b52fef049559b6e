// Shows the dialogs of the main window's commands and knows which are open. After StopWaiting every dialog is cancelled
// at once, so that nothing waits for a user who has left.
#pragma once

#include <QPointer>
#include <functional>
#include <vector>

class QDialog;
class QWidget;

class DialogHost final {
  public:
    /// What a dialog or a box opens in front of: the dialog that is open, else the window, else null. What belongs to a
    /// hidden or minimised window would stay out of sight with it. Takes null.
    [[nodiscard]] static QWidget* ParentFor(QWidget* window);

    /// Dialogs open in front of this window while it is visible, otherwise on their own.
    void SetWindow(QWidget* window) { m_window = window; }
    [[nodiscard]] QWidget* Parent() const;

    /// True when a dialog is open already; brings it to the front. The tray menu works while a dialog is open, so a
    /// command that opens one calls this first.
    [[nodiscard]] bool RaiseOpen() const;

    /// Asks the user about what would be lost if the dialog ended now; false when it has to stay.
    using MayEnd = std::function<bool()>;

    /// Shows the dialog modally and returns how it ended (QDialog::DialogCode).
    int Run(QDialog& dialog, const MayEnd& mayEnd = nullptr);

    /// Whether all open dialogs may end. Events run, but no dialog is destroyed meanwhile: each is further down the
    /// stack.
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

// The main window: shows the list and the state of monitoring and hands each command to the object that does it. Owns
// its widgets and the tray icon, not the program. It is hidden when it closes and destroyed by its owner only after
// Closed, when no run is on the stack.
#pragma once

#include "MainMenu.h"
#include "RunEndWaiter.h"
#include "RunNowCommands.h"
#include "StartUp.h"
#include "TrayIcon.h"
#include "WindowPlacement.h"
#include <QMainWindow>

class ActivityListView;
class QLabel;

class frmMain final : public QMainWindow, private StartUpFace {
    Q_OBJECT
  public:
    explicit frmMain(Program& program);
    ~frmMain() override;

    /// The start in its fixed order; returns when the window is ready, was declined or has been closed.
    [[nodiscard]] StartUpResult Start(const CommandLine& commandLine);

    /// The closing path of a session's end: no question is asked.
    void CloseWithoutQuestion();

  Q_SIGNALS:
    /// The close was accepted: nothing may wait for the user any more.
    void Closing();
    /// No run is left on the stack: the window can be destroyed.
    void Closed();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void Appear() override;
    void ShowState() override;
    void Minimise() override;
    bool AcceptsNotice() override;

    void buildStatusBar();
    void connectCommands();
    void connectProgram();
    void showMonitoring(bool on);
    void showCount();
    void toggleMonitoring();
    void refreshList();
    void hideInTray();
    void restoreFromTray();
    void beginClosing();

    Program& m_program;
    MainMenu m_menu;
    ActivityListView* m_view;
    QLabel* m_count = nullptr;
    TrayIcon m_tray;
    WindowPlacement m_placement;
    RunNowCommands m_runNow;
    RunEndWaiter m_waiter;
    bool m_started = false;
    bool m_askingToClose = false;
};

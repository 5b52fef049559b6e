// The main window: shows the list and the state of monitoring and hands each command to the object that does it. Owns
// its widgets and the tray icon, not the program. It is hidden when it closes and destroyed by its owner only after
// Closed, when no run is on the stack.
#pragma once

#include "ActivityCommands.h"
#include "ActivityFileCommands.h"
#include "HelpCommands.h"
#include "LogCommands.h"
#include "MainMenu.h"
#include "OptionsCommand.h"
#include "RunEndWaiter.h"
#include "RunNowCommands.h"
#include "SearchCommands.h"
#include "StartUp.h"
#include "StatusPanel.h"
#include "SystemCommands.h"
#include "TrayIcon.h"
#include "WindowPlacement.h"
#include <QMainWindow>
#include <functional>
#include <map>

class ActivityListView;
class FilePicker;

class frmMain final : public QMainWindow, private StartUpFace {
    Q_OBJECT
  public:
    /// What lets the user choose and edit; tests answer in its place.
    struct Tools {
        DialogHost& dialogs;
        FilePicker& picker;
        ActivityEditor& editor;
    };
    frmMain(Program& program, const Tools& tools);
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
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void Appear() override;
    void ShowState() override;
    void Minimise() override;
    bool AcceptsNotice() override;

    void connectProgram();
    [[nodiscard]] std::map<Command, std::function<void()>> commandTable();
    void run(Command command);
    void runNow(const std::function<void()>& work);
    void showCaption();
    void showRows();
    void showMonitoring(bool on);
    void showTrayState();
    void toggleMonitoring();
    void refreshList();
    void hideInTray();
    void restoreFromTray();
    [[nodiscard]] bool mayClose();
    void beginClosing();

    Program& m_program;
    DialogHost& m_dialogs;
    MainMenu m_menu;
    ActivityListView* m_view;
    StatusPanel m_status;
    TrayIcon m_tray;
    WindowPlacement m_placement;
    RunNowCommands m_runNow;
    ActivityCommands m_activities;
    ActivityFileCommands m_files;
    HelpCommands m_help;
    OptionsCommand m_options;
    LogCommands m_logs;
    SearchCommands m_search;
    SystemCommands m_system;
    RunEndWaiter m_waiter;
    const std::map<Command, std::function<void()>> m_commands; ///< every command that there is
    bool m_started = false;
    bool m_askingToClose = false;
};

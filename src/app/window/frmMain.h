// The main window: shows the list and the state of monitoring, and routes each command to the object that does it. A
// command that throws ends in a box that says why. Closing hides the window; its owner destroys it only after Closed,
// when no run is on the stack.
#pragma once

#include "ActivityCommands.h"
#include "ActivityFileCommands.h"
#include "ExampleCommand.h"
#include "HelpCommands.h"
#include "LastFilesMenu.h"
#include "LogCommands.h"
#include "LogWindows.h"
#include "MainMenu.h"
#include "OptionsCommand.h"
#include "ResultLook.h"
#include "RunEndWaiter.h"
#include "RunNowCommands.h"
#include "SearchCommands.h"
#include "StartUp.h"
#include "StatusPanel.h"
#include "SystemCommands.h"
#include "TrayIcon.h"
#include "UndoCommand.h"
#include "WindowPlacement.h"
#include <QMainWindow>
#include <functional>
#include <map>

class ActivityListView;
class EmptyListHint;
class FilePicker;

class frmMain final : public QMainWindow, private StartUpFace {
    Q_OBJECT
  public:
    /// How the user chooses and edits; tests answer instead.
    struct Tools {
        DialogHost& dialogs;
        FilePicker& picker;
        ActivityEditor& editor;
    };
    frmMain(Program& program, const Tools& tools);
    ~frmMain() override;

    /// The start in its fixed order; returns when the window is ready, was declined or has been closed.
    [[nodiscard]] StartUpResult Start(const CommandLine& commandLine);

    /// The closing path without its question, as at the end of a session.
    void CloseWithoutQuestion();

  Q_SIGNALS:
    /// The close is accepted: from now on nothing may wait for the user.
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

    void layOutList();
    void connectProgram();
    [[nodiscard]] std::map<Command, std::function<void()>> commandTable();
    void run(Command command);
    /// Runs whatever the user started; every exception ends here, in a box.
    void perform(const std::function<void()>& work);
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
    ResultLook m_results;
    ActivityListView* m_view;
    EmptyListHint* m_hint; ///< over the view, while the loaded list is empty
    StatusPanel m_status;
    TrayIcon m_tray;
    WindowPlacement m_placement;
    RunNowCommands m_runNow;
    ActivityCommands m_activities;
    ActivityFileCommands m_files;
    LastFilesMenu m_lastFiles;
    ExampleCommand m_example;
    HelpCommands m_help;
    OptionsCommand m_options;
    UndoCommand m_undo;
    LogWindows m_logWindows;
    LogCommands m_logs;
    SearchCommands m_search;
    SystemCommands m_system;
    RunEndWaiter m_waiter;
    const std::map<Command, std::function<void()>> m_commands;
    bool m_started = false;
    bool m_askingToClose = false;
};

// The commands that run activities at once, outside their schedules, or show what that would do. A command does nothing
// while another one is running.
#pragma once

#include "RunFacts.h"
#include <QStringList>

class DialogHost;
class FilePicker;
class Program;
enum class Text;

class RunNowCommands final {
  public:
    RunNowCommands(Program& program, DialogHost& dialogs, FilePicker& picker)
        : m_program(program), m_dialogs(dialogs), m_picker(picker) {}

    /// mnuStartActivityNow: asks, then runs the activity. Does nothing for an empty name.
    void StartActivity(const QString& name);

    /// mnuExecuteAllMarkedActivities: asks once, then runs each of them in this order.
    void ExecuteMarked(const QStringList& names);

    /// mnuPreview: shows what a run would do, and runs exactly that when the user wants it.
    void Preview(const QString& name);

    /// The same from within an open dialog.
    void PreviewInDialog(const QString& name);

  private:
    [[nodiscard]] bool refuseEmptyList();
    void askAndRun(QStringList names, Text question, Text title, NewDrive newDrive);

    Program& m_program;
    DialogHost& m_dialogs;
    FilePicker& m_picker;
    bool m_running = false;
};

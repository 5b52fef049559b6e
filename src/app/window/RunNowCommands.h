// The two commands that run activities at once, outside their schedules. A command does nothing while another one is
// running.
#pragma once

#include "RunFacts.h"
#include <QStringList>

class Program;
enum class Text;

class RunNowCommands final {
  public:
    explicit RunNowCommands(Program& program) : m_program(program) {}

    /// mnuStartActivityNow: asks, then runs the activity. Does nothing for an empty name.
    void StartActivity(const QString& name);

    /// mnuExecuteAllMarkedActivities: asks once, then runs each of them in this order.
    void ExecuteMarked(const QStringList& names);

  private:
    [[nodiscard]] bool refuseEmptyList();
    void askAndRun(QStringList names, Text question, Text title, NewDrive newDrive);

    Program& m_program;
    bool m_running = false;
};

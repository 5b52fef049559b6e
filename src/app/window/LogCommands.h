// The commands on the logs: show and delete the application log and those of activities. A missing log is reported in a
// box; only a regular file is deleted, and only after "Yes".
#pragma once

#include <QStringList>
#include <filesystem>

class DialogHost;
class Program;
enum class Text;

class LogCommands final {
  public:
    LogCommands(Program& program, DialogHost& dialogs) : m_program(program), m_dialogs(dialogs) {}

    /// mnuViewLogfile, mnuViewLogfileTray.
    void ShowApplicationLog();

    /// mnuShowLogfile and the toolbar's ViewLog: one window after the other, in this order. Stops at the first
    /// missing log.
    void ShowActivityLogs(const QStringList& names);

    /// mnuDeleteLogfile, mnuDeleteLogfileTray.
    void DeleteApplicationLog();

    /// mnuDeleteActivityLog. Does nothing for an empty name.
    void DeleteActivityLog(const QString& name);

  private:
    [[nodiscard]] bool isThere(const QString& path, Text textIfMissing);
    [[nodiscard]] bool isYes(const QString& text, Text title);
    void remove(const QString& path);

    Program& m_program;
    DialogHost& m_dialogs;
};

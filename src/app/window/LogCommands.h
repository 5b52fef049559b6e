// The commands on what was: show and delete the application log and those of activities, show how runs went. A missing
// log is reported in a box; only a regular file is deleted, and only after "Yes".
#pragma once

#include <QStringList>
#include <filesystem>

class DialogHost;
class LogWindows;
class Program;
enum class Text;

class LogCommands final {
  public:
    LogCommands(Program& program, DialogHost& dialogs, LogWindows& windows)
        : m_program(program), m_dialogs(dialogs), m_windows(windows) {}

    /// mnuViewLogfile, mnuViewLogfileTray.
    void ShowApplicationLog();

    /// mnuShowLogfile and the toolbar's ViewLog: one window after the other, in this order. Stops at the first
    /// missing log.
    void ShowActivityLogs(const QStringList& names);

    /// mnuLogWindow and mnuActivityLogWindow: the window of the activity's log, of the application log when it has none
    /// or no activity is named.
    void ShowLogWindow(const QString& name);

    /// btnResult: the same for the run that ended last, at the line of its failure or its end.
    void ShowLastResult();

    /// mnuStatistics. Does nothing for an empty name.
    void ShowStatistics(const QString& name);

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
    LogWindows& m_windows;
};

// What an activity does about a detected change besides the file action: a pop-up, a program to start. Owns nothing;
// a program that cannot be started leaves a line in the activity's log.
#pragma once

#include <QString>

class ActivityFile;
class ActivityLogs;
class Process;
class Prompter;
class StringTable;
struct RunState;

class Reactions final {
  public:
    struct Parts {
        ActivityFile& file;
        ActivityLogs& logs;
        Process& process;
        Prompter& prompter;
        const StringTable& texts;
        RunState& runState;
    };
    explicit Reactions(const Parts& parts) : m_parts(parts) {}

    /// The pop-up comes first and waits for the user; only then the program is started. Events can run inside.
    void ReactToChange(const QString& name, const QString& path);

  private:
    void executeFile(const QString& name, const QString& executable);
    Parts m_parts;
};

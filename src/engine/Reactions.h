// What an activity does about a detected change besides the file action: a pop-up, a program to start. Owns nothing;
// a program that cannot be started leaves a line in the activity's log.
#pragma once

#include <QString>
#include <functional>

class ActivityFile;
class ActivityLogs;
class Interruptions;
class Process;
class StringTable;

class Reactions final {
  public:
    struct Parts {
        ActivityFile& file;
        ActivityLogs& logs;
        Process& process;
        Interruptions& interruptions;
        const StringTable& texts;
    };
    explicit Reactions(const Parts& parts) : m_parts(parts) {}

    /// The pop-up comes first and waits for the user; only then the program is started, unless the answer to
    /// `mayGoOn` is no by that time: the record may be another one.
    void ReactToChange(const QString& name, const QString& path, const std::function<bool()>& mayGoOn);

  private:
    void executeFile(const QString& name, const QString& executable);
    Parts m_parts;
};

// Runs one activity: looks at its directories, lets a SyncRun do the work, and tells of the end. Owns nothing. It never
// throws: whatever goes wrong ends the run, with a line in the log.
#pragma once

#include "SyncRun.h"

class ActivityList;
class ActivityMailer;
class Clock;
class EngineLock;
class EngineOptions;
class StringTable;

class ChangeDetection final {
  public:
    struct Parts {
        SyncRun::Parts run;
        ActivityList& list;
        const EngineOptions& options;
        const StringTable& texts;
        const Clock& clock;
        ActivityMailer& mailer;
        EngineLock& lock;
    };
    explicit ChangeDetection(const Parts& parts) : m_parts(parts) {}

    /// Runs the activity once, now. Events run inside: rows and documents can be others afterwards.
    RunOutcome ProcessActivity(const QString& name, RunStarter starter);

  private:
    RunOutcome process(const QString& name, RunStarter starter, RunState::Run& run);
    [[nodiscard]] bool mayRun(const QString& name, RunStarter starter) const;
    RunOutcome refuse(const QString& name, const QString& directory, std::error_code error);
    void handleMissing(const QString& name, const QString& directory);
    void countRun(const QString& name);
    void sendMail(const QString& name, const Folder& source, const Folder& destination);

    Parts m_parts;
};

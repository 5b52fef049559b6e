// One run of one activity: its directories are checked, walked level by level and handed to the action. Owns nothing
// but what lives during a run. It never throws: whatever goes wrong ends the run, with a line in the log.
#pragma once

#include "ActionExecution.h"
#include "RunContext.h"

class ActivityList;
class ActivityMailer;
class EngineOptions;
class StringTable;

class ChangeDetection final {
  public:
    struct Parts {
        ActivityFile& file;
        ActivityList& list;
        ActivityLogs& logs;
        ActionExecution& actions;
        MonitoringSwitch& monitoring;
        const EngineOptions& options;
        const SyncTexts& syncTexts;
        const StringTable& texts;
        FileSystem& fileSystem;
        EventPump& pump;
        const Clock& clock;
        RunState& runState;
        ActivityMailer& mailer;
    };
    explicit ChangeDetection(const Parts& parts) : m_parts(parts) {}

    /// Runs the activity once, now. Events run inside: rows and documents can be others afterwards.
    RunOutcome ProcessActivity(const QString& name);

    /// One level of synchronisation.
    void SyncFilesAndFolders(RunContext& run, std::shared_ptr<Folder> source, std::shared_ptr<Folder> destination);

  private:
    RunOutcome process(const QString& name);
    /// Null when the directory of this text cannot be used.
    [[nodiscard]] std::shared_ptr<Folder> openDirectory(const QString& text) const;
    void handleMissing(const QString& name, const QString& directory);
    void countRun(const QString& name);
    RunOutcome synchronise(const QString& name, const std::shared_ptr<Folder>& source,
                           const std::shared_ptr<Folder>& destination);
    void sendMail(const QString& name, const Folder& source, const Folder& destination);

    Parts m_parts;
};

// Everything that belongs to one run of one activity: its two root folders, its transfer and how it went. Owns the
// transfer and the root handles; what fails inside is logged and counted, and the run goes on.
#pragma once

#include "FileSystem.h"
#include "FileTypeFilter.h"
#include "RunState.h"
#include "SyncRules.h"
#include <QString>
#include <chrono>
#include <set>

class ActivityFile;
class ActivityLogs;
class Clock;
class EventPump;
class SyncTexts;

class RunContext final : public TransferObserver {
  public:
    struct Parts {
        ActivityFile& file;
        ActivityLogs& logs;
        const SyncTexts& texts;
        EventPump& pump;
        const Clock& clock;
        FileSystem& fileSystem;
        RunState& runState;
    };
    RunContext(const Parts& parts, QString name, std::shared_ptr<Folder> source, std::shared_ptr<Folder> destination);
    ~RunContext() override;
    RunContext(const RunContext&) = delete;
    RunContext& operator=(const RunContext&) = delete;

    [[nodiscard]] const QString& Name() const { return m_name; }
    [[nodiscard]] const std::shared_ptr<Folder>& SourceRoot() const { return m_source; }
    [[nodiscard]] const std::shared_ptr<Folder>& DestinationRoot() const { return m_destination; }
    [[nodiscard]] FileTransfer& Transfer() { return *m_transfer; }
    [[nodiscard]] RunState& State() { return m_parts.runState; }

    /// A folder that is or contains one of the two roots: never transferred, moved away or deleted.
    [[nodiscard]] const std::set<FileId>& Protected() const { return m_protected; }
    [[nodiscard]] bool IsProtected(FileId id) const { return m_protected.contains(id); }

    /// True when the run must not go on: it was ended, the program closes, or the record has gone from the document
    /// (missing fields would read as "copy, overwrite, ignore dates").
    [[nodiscard]] bool Over();

    /// The fields of the record that rule over files, as they are now.
    [[nodiscard]] const FileRules& Rules();
    [[nodiscard]] const FileTypeFilter& Filter();
    void End() { m_ended = true; }

    /// Lets pending events run.
    void Yield();

    void Failed(const std::filesystem::path& source, std::error_code error) override;
    void Transferred() override { ++m_parts.runState.progress.files; }
    void Progress(std::uint64_t bytes) override;
    [[nodiscard]] bool StopRequested() const override { return m_ended || m_parts.runState.closing; }

    [[nodiscard]] RunOutcome Outcome() const { return {false, m_failures, StopRequested()}; }

  private:
    void readRecord();

    Parts m_parts;
    QString m_name;
    std::shared_ptr<Folder> m_source;
    std::shared_ptr<Folder> m_destination;
    std::set<FileId> m_protected;
    std::chrono::steady_clock::time_point m_lastYield;
    unsigned m_recordReadAt;
    RunProgress m_interrupted; ///< that of the run which this one runs inside of
    FileRules m_rules;
    FileTypeFilter m_filter;
    int m_failures = 0;
    bool m_ended = false;
    std::unique_ptr<FileTransfer> m_transfer;
};

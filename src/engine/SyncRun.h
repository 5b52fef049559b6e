// One run of one activity over its two directories: decides what happens to each file and folder, then does it, level
// by level. Owns what a run has: the record it began with, the rules, the transfer, the progress and why it ended. It
// never throws. What fails is logged and counted and the run goes on; where going on is unsafe it ends with a reason.
#pragma once

#include "FileSystem.h"
#include "FileTypeFilter.h"
#include "FolderPair.h"
#include "RunPlan.h"
#include "RunState.h"
#include "RunTools.h"
#include "RunTrash.h"
#include "SettleTime.h"
#include "SyncRules.h"

class FoldersAhead;

class SyncRun final : public TransferObserver {
  public:
    SyncRun(const RunTools& tools, RunIdentity identity, RunStarter starter, std::shared_ptr<Folder> source,
            std::shared_ptr<Folder> destination, RunVariant variant = {});
    ~SyncRun() override;
    SyncRun(const SyncRun&) = delete;
    SyncRun& operator=(const SyncRun&) = delete;

    /// Walks both trees and brings everything into place.
    [[nodiscard]] RunOutcome Run();

    /// One level: the abort test, the files, the sub-folders. False, with nothing done, when the destination was new to
    /// an earlier run that could not finish it: then it is transferred whole, as that run would have.
    [[nodiscard]] bool SyncFilesAndFolders(SeenPair folders, int depth);

    // For FileSync and SurplusRemoval.

    /// True when the run must not go on: it has ended, the program is closing, monitoring was stopped, or the record
    /// differs from the one it began with. The first call that notices logs the reason.
    [[nodiscard]] bool Over();
    void End(RunEnd reason);

    /// Ends the program when the user holds the emergency key; to be called after every file and folder.
    void AbortTest();

    /// True while a mirror may delete: the run goes on and both roots are where they were. Else ends the run.
    [[nodiscard]] bool MayDelete();

    /// False, with a line, for a folder on another mount or where that cannot be known: nothing is deleted there.
    [[nodiscard]] bool IsOnMount(const Folder& folder, std::optional<std::uint64_t> mount);

    /// True for an entry of the destination that the source lacks, now as when it was listed.
    [[nodiscard]] bool IsSurplus(FolderPair& pair, const FolderEntry& entry);

    [[nodiscard]] const RunTools& Tools() const { return m_tools; }
    [[nodiscard]] FileTransfer& Transfer() { return *m_transfer; }
    [[nodiscard]] const FileRules& Rules();
    [[nodiscard]] const FileTypeFilter& Filter();
    [[nodiscard]] const QString& Name() const { return m_identity.name; }
    [[nodiscard]] const RunIdentity& Identity() const { return m_identity; }

    /// A folder that is or contains one of the two roots: never transferred, deleted or walked as a destination.
    [[nodiscard]] bool IsRootOrAbove(FileId folder) const { return m_roots.contains(folder); }
    /// A file that no activity may replace, move or delete.
    [[nodiscard]] bool IsOwnFile(FileId file);
    /// A log that this run may be writing to.
    [[nodiscard]] bool IsLog(FileId file);

    /// True for a run that only writes down what it would do.
    [[nodiscard]] bool IsPlanning() const { return m_variant.plan != nullptr; }

    void Plan(PlannedAct act) { m_variant.plan->push_back(std::move(act)); }

    /// True for a run that must ask MayDo before each act.
    [[nodiscard]] bool IsBound() const { return !IsPlanning() && (hasApproval() || m_variant.brake != nullptr); }
    /// False when the user has approved a plan that lacks this act, or it is one too many: the run ends.
    [[nodiscard]] bool MayDo(const PlannedAct& act);
    [[nodiscard]] bool MayDo(Deed deed, const TransferFile& file);

    /// To be called for each file found at the destination, and for each that a transfer has replaced.
    void FoundAtDestination();
    void Replaced(const TransferFile& file);

    /// Deletes a file or an empty folder of a mirror's destination, or keeps it in the trash.
    [[nodiscard]] std::error_code Delete(Folder& folder, const FolderEntry& entry);

    /// Nothing is done with this file or folder; the log says why.
    void LeaveAlone(const QString& path, const QString& text);
    /// The same for what needs nothing done; its line may be written a little later.
    void LeaveAsIs(const QString& path, const std::function<QString()>& compose);

    /// Shows the message and starts the program of the activity. False when the run is over then.
    [[nodiscard]] bool React(const QString& path);
    void Line(const QString& text);
    /// Composes the line only when something reads it.
    void Line(const std::function<QString()>& compose);
    /// A line that announces no act: it may be written a little later.
    void Note(const std::function<QString()>& compose);
    /// Writes the line and counts a failure.
    void Refuse(const QString& text, const QString& path = {});
    void Failed(const std::filesystem::path& source, std::error_code error) override;
    void Transferred() override {
        RunCounts& done = m_tools.services.runState.Counts();
        ++(m_rules.action == FileAction::Move ? done.moved : done.copied);
    }
    void Progress(std::uint64_t bytes) override;
    [[nodiscard]] bool MustGiveUp() override;
    [[nodiscard]] bool StopRequested() override { return Over(); }
    [[nodiscard]] bool MayLeaveOut() override;
    [[nodiscard]] bool LeavesOut(const FileFacts& file) override;
    void LeftOut(const std::filesystem::path& source) override;

  private:
    void SyncFiles(FolderPair& pair);
    void SyncFolders(FolderPair& pair);
    void syncFolder(FolderPair& pair, const FolderEntry& entry, FoldersAhead& ahead);
    void transferFolder(FolderPair& pair, const FolderEntry& entry);
    void walkInto(FolderPair& pair, const FolderEntry& source, const FolderEntry& destination, FoldersAhead& ahead);
    void finishFolder(FolderPair& pair, const FolderEntry& source, const FolderEntry& destination);
    [[nodiscard]] bool hasApproval() const { return m_variant.approved != nullptr; }
    void readRecord();
    void noteReason(const QString& text);
    void lookAtOwnFiles();

    RunTools m_tools;
    RunIdentity m_identity;
    RunVariant m_variant;
    RunStarter m_starter;
    std::shared_ptr<Folder> m_source;
    std::shared_ptr<Folder> m_destination;
    std::optional<std::uint64_t> m_destinationMount;
    std::set<FileId> m_roots;
    unsigned m_recordReadAt;
    FileRules m_rules;
    FileTypeFilter m_filter;
    SettleTime m_settle;
    int m_leftOut = 0;
    QString m_firstLeftOut;
    QString m_log;                            ///< of the activity, as the record says
    std::optional<unsigned> m_ownFilesSeenAt; ///< the interruptions so far
    std::set<FileId> m_ownFiles;
    std::set<FileId> m_logs;
    int m_failures = 0;
    QString m_reason;            ///< the first failure, or why the run ended early
    std::int64_t m_reasonAt = 0; ///< in the log; bytes
    RunEnd m_end;
    std::optional<std::chrono::steady_clock::time_point> m_closingSince;
    RunTrash m_trash;
    std::unique_ptr<FileTransfer> m_transfer;
    Interruptions::Staging m_staging;
};

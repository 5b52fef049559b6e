// What a run would do: found out by the engine that would do it, on a walk that changes nothing. Plain values, and the
// transfer that writes down what it is told instead of doing it.
#pragma once

#include "FileSystem.h"
#include "RunFacts.h"
#include <QString>
#include <unordered_map>
#include <vector>

class RunBrake;

enum class Deed {
    Copy,
    Move,
    Replace, ///< by a copy or a move
    Delete,  ///< a file or an empty folder of a mirror's destination
    Ask,     ///< the user would be asked whether an older file replaces a newer one
    LeaveAlone,
    Fail
};
constexpr std::size_t DeedCount = 7;

struct PlannedAct {
    Deed deed = Deed::LeaveAlone;
    QString path;        ///< of the source; where something is deleted, of the destination
    QString destination; ///< empty where there is none
    QString reason;      ///< why it fails or is left alone, as the log would say
    bool isFolder = false;
    FileFacts facts{}; ///< of `path`; empty for what is left alone
    FileFacts replaced{};
};

struct RunPlan {
    RunIdentity run;
    RunOutcome outcome;
    std::vector<PlannedAct> acts; ///< in the order of the run

    /// False where the walk could not begin or was ended early.
    [[nodiscard]] bool IsComplete() const { return !outcome.interrupted && !outcome.directoryMissing && !outcome.held; }
    /// True when the run would change anything.
    [[nodiscard]] bool HasDeeds() const;
};

/// Compares what a run is about to do with the plan that the user has approved.
class ApprovedPlan final {
  public:
    /// The plan must outlive it.
    explicit ApprovedPlan(const RunPlan& plan);
    explicit ApprovedPlan(RunPlan&& plan) = delete;

    /// True when the plan has this act on the same, unchanged files. A replacement that the user is asked about counts
    /// as one.
    [[nodiscard]] bool Approves(const PlannedAct& act);

    /// True when every approved act was asked for.
    [[nodiscard]] bool IsDone() const { return m_left == 0; }

  private:
    struct Approved {
        const PlannedAct* act;
        bool isAskedFor = false;
    };
    std::unordered_multimap<std::size_t, Approved> m_approved; ///< by a hash of the deed and the paths
    std::size_t m_left = 0;
};

/// True for a file that the run itself has staged there before.
[[nodiscard]] bool IsOwnWork(const TransferFile& file);

/// Where a run differs from the usual one.
struct RunVariant {
    std::vector<PlannedAct>* plan = nullptr; ///< only writes down what it would do: changes, logs and asks nothing
    ApprovedPlan* approved = nullptr;        ///< does what this has, and ends at the first thing it has not
    RunBrake* brake = nullptr;               ///< hears of what the walk finds, and ends the run where it allows no more
    bool expires = false;                    ///< removes what the destination has kept for long enough, at its end
};

[[nodiscard]] PlannedAct Deletion(const Folder& folder, const FolderEntry& entry);

/// `deed`: for a free name; otherwise it is a replacement.
[[nodiscard]] PlannedAct Transfer(Deed deed, const TransferFile& file);

/// Writes down each transfer as done: the walk goes on as if it were.
class PlanTransfer final : public FileTransfer {
  public:
    /// `tellsFailures`: false where the transfer that follows will tell the observer of them.
    PlanTransfer(TransferObserver& observer, std::vector<PlannedAct>& acts, bool tellsFailures)
        : m_observer(observer), m_acts(acts), m_tellsFailures(tellsFailures) {}

    [[nodiscard]] bool Copy(const TransferFile& file) override;
    [[nodiscard]] bool Move(const TransferFile& file) override;
    [[nodiscard]] bool CompleteMove(const TransferFile& file) override;
    void CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                  const FolderEntry& entry, const std::set<FileId>& excluded) override;
    void MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                  const FolderEntry& entry, const std::set<FileId>& excluded) override;
    void Commit() override {}

  private:
    [[nodiscard]] bool add(Deed deed, const TransferFile& file);
    void addTree(Deed deed, const Folder& source, const std::filesystem::path& destination, const FolderEntry& entry,
                 const std::set<FileId>& excluded, int depth);

    void failed(const std::filesystem::path& path, std::error_code error);

    TransferObserver& m_observer;
    std::vector<PlannedAct>& m_acts;
    bool m_tellsFailures;
};

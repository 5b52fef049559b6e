// The most files that a run may delete or replace at its destination, as its activity wants it. Counts each path once;
// folders and logs do not count. Plain values: who asks the user, and what ends the run, is decided elsewhere.
#pragma once

#include "FileFacts.h"
#include <QSet>
#include <QString>
#include <cstdint>
#include <optional>
#include <set>
#include <vector>

class ActivityFile;
struct PlannedAct;
struct RunIdentity;

class RunBrake final {
  public:
    /// Nothing for an activity that sets no limit, or whose action changes nothing.
    [[nodiscard]] static std::optional<RunBrake> Of(const ActivityFile& file, const RunIdentity& run);

    /// To be called for every file that the walk finds at the destination: the counterpart of one of the source's, or
    /// one that is surplus. Of these is the percentage.
    void Found() { ++m_found; }

    /// Counts what the walk wrote down. From here on no more is allowed than the activity allows unasked.
    void Count(const std::vector<PlannedAct>& plan, const std::set<FileId>& logs);
    [[nodiscard]] bool IsOver() const { return counted() > m_allowed; }
    /// The user wants what was counted.
    void AllowCounted() { m_allowed = counted(); }

    [[nodiscard]] std::uint64_t Deleted() const { return m_deleted; }
    [[nodiscard]] std::uint64_t Replaced() const { return m_replaced; }
    [[nodiscard]] std::uint64_t FoundFiles() const { return m_found; }
    /// Of the files found, rounded down.
    [[nodiscard]] std::uint64_t Percent() const { return m_found == 0 ? 0 : counted() * 100 / m_found; }

    /// False for an act that deletes or replaces one file too many.
    [[nodiscard]] bool Allows(const PlannedAct& act) const;
    /// The act is done.
    void Take(const PlannedAct& act);

  private:
    RunBrake(std::uint64_t files, std::uint64_t percent) : m_files(files), m_percent(percent) {}
    [[nodiscard]] std::uint64_t counted() const { return m_deleted + m_replaced; }

    std::uint64_t m_files;   ///< 0: no limit
    std::uint64_t m_percent; ///< 0: no limit
    std::uint64_t m_found = 0;
    std::uint64_t m_deleted = 0;
    std::uint64_t m_replaced = 0;
    std::uint64_t m_allowed = 0;
    QSet<QString> m_taken; ///< paths at the destination
};

#include "RunBrake.h"
#include "ActivityFile.h"
#include "RunPlan.h"

#include <algorithm>
#include <limits>

namespace {

/// The file at the destination that is no more after the act; empty when there is none.
QString lostBy(const PlannedAct& act) {
    if (act.deed == Deed::Delete && !act.isFolder)
        return act.path;
    return act.deed == Deed::Replace || act.deed == Deed::Ask ? act.destination : QString();
}

} // namespace

std::optional<RunBrake> RunBrake::Of(const ActivityFile& file, const RunIdentity& run) {
    const auto read = [&](ActivityField field) {
        return static_cast<std::uint64_t>(std::max(file.Read(run.name, field).toInt(), 0));
    };
    const RunBrake brake(read(ActivityField::AskFiles), read(ActivityField::AskPercent));
    const bool isOff = (brake.m_files == 0 && brake.m_percent == 0) || run.action == u"2";
    return isOff ? std::nullopt : std::optional(brake);
}

void RunBrake::Count(const std::vector<PlannedAct>& plan, const std::set<FileId>& logs) {
    QSet<QString> counted;
    for (const PlannedAct& act : plan) {
        const QString path = lostBy(act);
        if (path.isEmpty() || counted.contains(path) || logs.contains(act.facts.id))
            continue;
        counted.insert(path);
        ++(act.deed == Deed::Delete ? m_deleted : m_replaced);
    }
    m_allowed = m_files == 0 ? std::numeric_limits<std::uint64_t>::max() : m_files;
    if (m_percent != 0)
        m_allowed = std::min(m_allowed, m_found * m_percent / 100);
}

bool RunBrake::Allows(const PlannedAct& act) const {
    const QString path = lostBy(act);
    return path.isEmpty() || m_taken.contains(path) || static_cast<std::uint64_t>(m_taken.size()) < m_allowed;
}

void RunBrake::Take(const PlannedAct& act) {
    if (const QString path = lostBy(act); !path.isEmpty())
        m_taken.insert(path);
}

#include "RunResults.h"
#include "ActivityFile.h"
#include "Clock.h"

#include <utility>

namespace {

/// Many activities may run every second; the file is written once for all of them.
constexpr std::chrono::seconds saveDelay{5};

RunEnding endingOf(const RunOutcome& outcome) {
    if (outcome.directoryMissing || outcome.failures > 0)
        return RunEnding::Failed;
    return outcome.interrupted ? RunEnding::Early : RunEnding::Fine;
}

} // namespace

RunResults::RunResults(const ActivityFile& activities, OwnFiles& files, const Clock& clock,
                       std::filesystem::path stateFolder)
    : m_activities(activities), m_clock(clock), m_file(files, std::move(stateFolder), ".results") {
    m_saving.setSingleShot(true);
    m_saving.setInterval(saveDelay);
    connect(&m_saving, &QTimer::timeout, this, &RunResults::save);
}

RunResults::~RunResults() {
    save();
}

void RunResults::Began(const RunIdentity& run) {
    m_running.insert(run.name, m_clock.MonotonicNow());
    Q_EMIT Changed(run.name);
}

RunResult RunResults::Result(const RunIdentity& run, const QString& log, const RunOutcome& outcome,
                             const RunCounts& done) const {
    const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(m_clock.Now().time_since_epoch());
    const auto ended = m_clock.MonotonicNow();
    const auto took = ended - m_running.value(run.name, ended);
    return {.ending = endingOf(outcome),
            .at = QDateTime::fromMSecsSinceEpoch(now.count(), Qt::UTC),
            .took = std::chrono::duration_cast<std::chrono::seconds>(took),
            .done = done,
            .failures = outcome.failures,
            .reason = outcome.reason,
            .log = log,
            .line = outcome.logLine};
}

void RunResults::Ended(const RunIdentity& run, const RunResult& result) {
    load(run.activityFile);
    m_results[run.name] = result.ToJson(run);
    m_unsaved.insert(run.name);
    m_running.remove(run.name);
    m_last = run;
    if (result.ending == RunEnding::Failed)
        m_unseen.insert(run.name);
    if (!m_saving.isActive())
        m_saving.start();
    Q_EMIT Changed(run.name);
    Q_EMIT RunEnded(run, result);
}

std::optional<RunResult> RunResults::Of(const RunIdentity& run) {
    load(run.activityFile);
    const QJsonObject kept = m_results[run.name].toObject();
    return IsOf(kept, run) ? RunResult::FromJson(kept) : std::nullopt;
}

void RunResults::Refresh() {
    save();
    m_loadedFor.clear();
}

void RunResults::load(const QString& activityFile) {
    if (m_loadedFor == activityFile)
        return;
    save();
    m_results = m_file.Read(activityFile);
    m_loadedFor = activityFile;
}

/// Another process may have run other activities of the file meanwhile: only this one's own results are replaced.
void RunResults::save() {
    m_saving.stop();
    if (m_unsaved.isEmpty())
        return;
    QJsonObject kept = m_file.Read(m_loadedFor);
    for (const QString& name : std::exchange(m_unsaved, {}))
        kept[name] = m_results[name];
    if (m_activities.IsLoaded() && m_activities.CurrentPath() == m_loadedFor)
        for (const QString& name : kept.keys())
            if (!m_activities.Has(name))
                kept.remove(name);
    m_file.Write(m_loadedFor, kept);
    m_results = kept;
}

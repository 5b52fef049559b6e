#include "RunResults.h"
#include "ActivityFile.h"
#include "Clock.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

/// Many activities may run every second; the file is written once for all of them.
constexpr std::chrono::seconds saveDelay{5};

constexpr std::array<QLatin1String, 3> endings{QLatin1String("fine"), QLatin1String("failed"), QLatin1String("early")};

RunEnding endingOf(const RunOutcome& outcome) {
    if (outcome.directoryMissing || outcome.failures > 0)
        return RunEnding::Failed;
    return outcome.interrupted ? RunEnding::Early : RunEnding::Fine;
}

} // namespace

QJsonObject RunResults::ToJson(const RunIdentity& run, const RunResult& result) {
    const auto number = [](std::uint64_t value) { return static_cast<qint64>(value); };
    return {{QStringLiteral("activity"), run.name},
            {QStringLiteral("sourcedir"), run.source},
            {QStringLiteral("targetdir"), run.destination},
            {QStringLiteral("action"), run.action},
            {QStringLiteral("ending"), endings[static_cast<std::size_t>(result.ending)]},
            {QStringLiteral("at"), result.at.toString(Qt::ISODate)},
            {QStringLiteral("seconds"), static_cast<qint64>(result.took.count())},
            {QStringLiteral("files"), number(result.done.files)},
            {QStringLiteral("bytes"), number(result.done.bytes)},
            {QStringLiteral("replaced"), number(result.done.replaced)},
            {QStringLiteral("deleted"), number(result.done.deleted)},
            {QStringLiteral("leftAlone"), number(result.done.leftAlone)},
            {QStringLiteral("failures"), result.failures},
            {QStringLiteral("reason"), result.reason},
            {QStringLiteral("log"), result.log},
            {QStringLiteral("line"), static_cast<qint64>(result.line)}};
}

namespace {

bool belongsTo(const QJsonObject& kept, const RunIdentity& run) {
    return kept[u"sourcedir"] == run.source && kept[u"targetdir"] == run.destination && kept[u"action"] == run.action;
}

std::optional<RunResult> fromJson(const QJsonObject& kept) {
    const auto ending = std::find(endings.begin(), endings.end(), kept[u"ending"].toString());
    const QDateTime at = QDateTime::fromString(kept[u"at"].toString(), Qt::ISODate);
    if (ending == endings.end() || !at.isValid())
        return std::nullopt;
    const auto number = [&](QStringView key) { return std::max<qint64>(kept[key].toInteger(), 0); };
    const auto count = [&](QStringView key) { return static_cast<std::uint64_t>(number(key)); };
    return RunResult{.ending = static_cast<RunEnding>(ending - endings.begin()),
                     .at = at,
                     .took = std::chrono::seconds(number(u"seconds")),
                     .done = {.files = count(u"files"),
                              .bytes = count(u"bytes"),
                              .replaced = count(u"replaced"),
                              .deleted = count(u"deleted"),
                              .leftAlone = count(u"leftAlone")},
                     .failures = static_cast<int>(number(u"failures")),
                     .reason = kept[u"reason"].toString(),
                     .log = kept[u"log"].toString(),
                     .line = number(u"line")};
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

void RunResults::Ended(const RunIdentity& run, const QString& log, const RunOutcome& outcome, const RunCounts& done) {
    load(run.activityFile);
    const auto now = std::chrono::duration_cast<std::chrono::milliseconds>(m_clock.Now().time_since_epoch());
    const auto ended = m_clock.MonotonicNow();
    const auto took = ended - m_running.value(run.name, ended);
    const RunResult result{.ending = endingOf(outcome),
                           .at = QDateTime::fromMSecsSinceEpoch(now.count(), Qt::UTC),
                           .took = std::chrono::duration_cast<std::chrono::seconds>(took),
                           .done = done,
                           .failures = outcome.failures,
                           .reason = outcome.reason,
                           .log = log,
                           .line = outcome.logLine};
    m_results[run.name] = ToJson(run, result);
    m_unsaved.insert(run.name);
    m_running.remove(run.name);
    m_last = run;
    if (result.ending == RunEnding::Failed)
        m_unseen.insert(run.name);
    if (!m_saving.isActive())
        m_saving.start();
    Q_EMIT Changed(run.name);
}

std::optional<RunResult> RunResults::Of(const RunIdentity& run) {
    load(run.activityFile);
    const QJsonObject kept = m_results[run.name].toObject();
    return belongsTo(kept, run) ? fromJson(kept) : std::nullopt;
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

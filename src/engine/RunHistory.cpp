#include "RunHistory.h"
#include "ActivityFile.h"

#include <QJsonArray>
#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace {

constexpr std::chrono::seconds saveDelay{5};
constexpr std::chrono::minutes idleDelay{1}; // for one more of the same
constexpr qsizetype mostReason = 100;        // characters
/// Of one file, so that it stays below what is read: a long list of activities keeps fewer runs of each.
constexpr std::size_t mostInAll = 20'000;
constexpr std::size_t fewestRuns = 5;

/// In the order in which they are written.
constexpr std::array counts{&RunCounts::copied,  &RunCounts::moved,     &RunCounts::replaced,
                            &RunCounts::deleted, &RunCounts::leftAlone, &RunCounts::bytes};
constexpr qsizetype plainFields = 6;
constexpr qsizetype allFields = plainFields + static_cast<qsizetype>(counts.size()) + 1;

/// "ending since at runs seconds failures" with times in seconds since 1970, the counts, and the reason to the end.
QString toText(const PastRun& past) {
    QStringList fields;
    for (const std::int64_t value :
         {static_cast<std::int64_t>(past.result.ending), static_cast<std::int64_t>(past.since.toSecsSinceEpoch()),
          static_cast<std::int64_t>(past.result.at.toSecsSinceEpoch()), past.runs,
          static_cast<std::int64_t>(past.result.took.count()), static_cast<std::int64_t>(past.result.failures)})
        fields.append(QString::number(value));
    for (const auto count : counts)
        fields.append(QString::number(past.result.done.*count));
    return fields.join(u' ') + u' ' + past.result.reason;
}

std::optional<PastRun> fromText(const QString& text) {
    const QStringList fields = text.split(u' ');
    if (fields.size() < allFields)
        return std::nullopt;
    bool isFine = true;
    const auto number = [&](qsizetype field, qint64 most = std::numeric_limits<qint64>::max()) {
        bool isNumber = false;
        const qint64 value = fields[field].toLongLong(&isNumber);
        isFine = isFine && isNumber && value >= 0 && value <= most;
        return value;
    };
    constexpr qint64 lastSecond = 253'402'300'799; // of the year 9999
    PastRun past;
    RunResult& result = past.result;
    result.ending = static_cast<RunEnding>(number(0, static_cast<qint64>(RunEnding::Early)));
    past.since = QDateTime::fromSecsSinceEpoch(number(1, lastSecond), Qt::UTC);
    result.at = QDateTime::fromSecsSinceEpoch(number(2, lastSecond), Qt::UTC);
    past.runs = number(3);
    result.took = std::chrono::seconds(number(4));
    result.failures = static_cast<int>(number(5, std::numeric_limits<int>::max()));
    for (std::size_t i = 0; i < counts.size(); ++i)
        result.done.*counts[i] = static_cast<std::uint64_t>(number(plainFields + static_cast<qsizetype>(i)));
    result.reason = fields.mid(allFields - 1).join(u' ');
    return isFine ? std::optional(past) : std::nullopt;
}

void append(std::vector<PastRun>& runs, const PastRun& next) {
    if (!runs.empty() && runs.back().IsLike(next)) {
        PastRun& last = runs.back();
        const std::chrono::seconds longest = std::max(last.result.took, next.result.took);
        last.result = next.result;
        last.result.took = longest;
        last.runs += next.runs;
        return;
    }
    runs.push_back(next);
    if (runs.size() > RunHistory::MostRuns)
        runs.erase(runs.begin());
}

} // namespace

bool PastRun::IsLike(const PastRun& other) const {
    const auto what = [](const RunResult& run) { return std::tie(run.ending, run.failures, run.reason); };
    return !result.done.HasDeeds() && !other.result.done.HasDeeds() && what(result) == what(other.result);
}

RunHistory::RunHistory(const ActivityFile& activities, OwnFiles& files, std::filesystem::path stateFolder)
    : m_activities(activities), m_file(files, std::move(stateFolder), ".history") {
    m_saving.setSingleShot(true);
    connect(&m_saving, &QTimer::timeout, this, &RunHistory::save);
}

RunHistory::~RunHistory() {
    save();
}

void RunHistory::Add(const RunIdentity& run, const RunResult& result) {
    if (m_activityFile != run.activityFile)
        save();
    m_activityFile = run.activityFile;
    Unsaved& unsaved = m_unsaved[run.name];
    if (unsaved.run != run)
        unsaved = {run, {}};
    PastRun past{.result = result, .since = QDateTime::fromSecsSinceEpoch(result.at.toSecsSinceEpoch(), Qt::UTC)};
    past.result.at = past.since;
    past.result.reason.truncate(mostReason);
    past.result.log.clear();
    past.result.line = 0;
    append(unsaved.runs, past);
    const auto last = m_last.constFind(run.name);
    const bool isMoreOfTheSame = last != m_last.constEnd() && last->IsLike(past);
    m_last[run.name] = past;
    const std::chrono::milliseconds delay = isMoreOfTheSame ? std::chrono::milliseconds(idleDelay) : saveDelay;
    if (!m_saving.isActive() || m_saving.remainingTimeAsDuration() > delay)
        m_saving.start(delay);
}

std::vector<PastRun> RunHistory::Of(const RunIdentity& run) const {
    const auto unsaved = m_unsaved.constFind(run.name);
    const bool isOurs = unsaved != m_unsaved.constEnd() && unsaved->run == run;
    return merged(m_file.Read(run.activityFile)[run.name].toObject(), isOurs ? *unsaved : Unsaved{run, {}});
}

std::vector<PastRun> RunHistory::merged(const QJsonObject& kept, const Unsaved& unsaved) {
    std::vector<PastRun> runs;
    if (IsOf(kept, unsaved.run))
        for (const QJsonValue text : kept[u"runs"].toArray())
            if (const std::optional<PastRun> past = fromText(text.toString()))
                append(runs, *past);
    for (const PastRun& past : unsaved.runs)
        append(runs, past);
    return runs;
}

/// Another process may have added runs meanwhile: ours come behind them.
void RunHistory::save() {
    m_saving.stop();
    if (m_unsaved.isEmpty())
        return;
    QJsonObject kept = m_file.Read(m_activityFile);
    if (m_activities.IsLoaded() && m_activities.CurrentPath() == m_activityFile)
        for (const QString& name : kept.keys())
            if (!m_activities.Has(name))
                kept.remove(name);
    const std::size_t activities = static_cast<std::size_t>(kept.size() + m_unsaved.size());
    const std::size_t most = std::clamp(mostInAll / activities, fewestRuns, MostRuns);
    for (const Unsaved& unsaved : std::exchange(m_unsaved, {})) {
        const RunIdentity& run = unsaved.run;
        const std::vector<PastRun> all = merged(kept[run.name].toObject(), unsaved);
        QJsonArray texts;
        for (std::size_t i = all.size() - std::min(all.size(), most); i < all.size(); ++i)
            texts.append(toText(all[i]));
        kept[run.name] = QJsonObject{{QStringLiteral("sourcedir"), run.source},
                                     {QStringLiteral("targetdir"), run.destination},
                                     {QStringLiteral("action"), run.action},
                                     {QStringLiteral("runs"), texts}};
    }
    m_file.Write(m_activityFile, kept);
}

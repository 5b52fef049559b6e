#include "ChangeWatch.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "Clock.h"
#include "FileTypeFilter.h"
#include "OwnPlaces.h"
#include "RunResults.h"
#include "SettleTime.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"

#include <algorithm>

using namespace std::chrono_literals;

namespace {
constexpr std::chrono::milliseconds leastQuiet = 500ms;
constexpr std::chrono::seconds leastPatience = 10s;
constexpr std::chrono::seconds untilBack = 10s; ///< a drive that was taken out
constexpr std::chrono::seconds untilRoom = 5min;
constexpr int mostDoublings = 5;
constexpr int restPerRun = 4; ///< times its length
} // namespace

ChangeWatch::ChangeWatch(const EngineServices& services, FolderWatches& watches, ActivityLogs& logs,
                         const OwnPlaces& ownPlaces, std::filesystem::path leftOut)
    : m_services(services), m_watches(watches), m_logs(logs), m_ownPlaces(ownPlaces), m_leftOut(std::move(leftOut)) {}

ChangeWatch::~ChangeWatch() = default;

QString ChangeWatch::read(const QString& name, ActivityField field) const {
    return m_services.file.Read(name, field);
}

void ChangeWatch::Follow(const QStringList& names) {
    for (const QString& name : m_followed.keys())
        if (!names.contains(name))
            m_followed.remove(name);
    for (const QString& name : names) {
        const RunIdentity run = RunIdentity::Of(m_services.file, name);
        const QString subfolders = read(name, ActivityField::IncludeSubdirs);
        auto known = m_followed.find(name);
        if (known == m_followed.end() || known->run != run || known->subfolders != subfolders) {
            known = m_followed.insert(name, {.run = run, .subfolders = subfolders});
            begin(*known);
        } else if (!known->watch && m_services.clock.MonotonicNow() >= known->retryAt) {
            begin(*known);
        }
    }
}

void ChangeWatch::begin(Followed& followed) {
    WatchOrder order{.folder = modNativePath::Absolute(followed.run.source),
                     .hasSubfolders = followed.subfolders == u"Y",
                     .tellsRemovals = followed.run.action == u"3",
                     .leftOut = {m_leftOut}};
    if (followed.run.action != u"2") // what is copied into a folder of the source is no change of it
        order.leftOut.push_back(modNativePath::Absolute(followed.run.destination));
    followed.watch = order.folder.empty() ? nullptr : m_watches.Begin(order);
}

QStringList ChangeWatch::TakeDue() {
    QStringList due;
    for (auto followed = m_followed.begin(); followed != m_followed.end(); ++followed) {
        take(*followed);
        if (!isDue(*followed))
            continue;
        followed->first.reset();
        m_logs.WriteActionLine(followed.key(), followed->firstText);
        due.append(followed.key());
    }
    for (auto again = m_again.cbegin(); again != m_again.cend(); ++again)
        if (m_services.clock.MonotonicNow() >= again->at && !due.contains(again.key()))
            due.append(again.key());
    for (const QString& name : due) // unless its run leaves files out again
        if (const auto again = m_again.find(name); again != m_again.end())
            again->at = Time::max();
    return due;
}

void ChangeWatch::take(Followed& followed) {
    if (!followed.watch)
        return;
    const FolderWatch::News news = followed.watch->Take();
    if (news.end)
        return ended(followed, news);
    if (news.isAnything)
        followed.notWatched.clear();
    const auto changed = std::find_if(news.changed.begin(), news.changed.end(),
                                      [&](const auto& path) { return matters(followed.run, path); });
    if (!news.isAnything && changed == news.changed.end())
        return;
    followed.last = m_services.clock.MonotonicNow();
    if (followed.first)
        return;
    followed.first = followed.last;
    followed.firstText = changed != news.changed.end()
                             ? m_services.texts[Text::ChangeSeen].arg(modNativePath::ToText(*changed))
                             : m_services.texts[Text::AnythingChanged].arg(followed.run.source);
}

/// A directory that is not there is the run's to report. Where it is another machine's, nothing will change that.
void ChangeWatch::ended(Followed& followed, const FolderWatch::News& news) {
    followed.watch.reset();
    const Time now = m_services.clock.MonotonicNow();
    if (news.end == WatchEnd::Gone) {
        followed.retryAt = now + untilBack;
        return;
    }
    followed.retryAt = news.end == WatchEnd::NetworkFolder ? Time::max() : now + untilRoom;
    QString reason = modForeignText::OfError(news.error);
    if (news.end == WatchEnd::NetworkFolder)
        reason = m_services.texts[Text::WatchNetworkFolder];
    else if (news.end == WatchEnd::LimitReached)
        reason = m_services.texts[Text::WatchLimitReached];
    const QString line = m_services.texts[Text::NotWatched].arg(followed.run.source, reason);
    if (followed.notWatched == line)
        return;
    followed.notWatched = line;
    m_logs.WriteActionLine(followed.run.name, line);
    m_logs.WriteAppLog(u'\'' + followed.run.name + u"': " + line);
}

bool ChangeWatch::isDue(const Followed& followed) const {
    const Time now = m_services.clock.MonotonicNow();
    if (!followed.first || now < followed.mayRunAt || m_services.results.IsRunning(followed.run.name))
        return false;
    const std::chrono::seconds settle = SettleTime(read(followed.run.name, ActivityField::SettleSeconds)).Length();
    return now - followed.last >= std::max<std::chrono::milliseconds>(settle, leastQuiet) ||
           now - *followed.first >= std::max(4 * settle, leastPatience);
}

bool ChangeWatch::matters(const RunIdentity& run, const std::filesystem::path& path) const {
    const QString text = modNativePath::ToText(path);
    std::error_code error;
    const FileTypeFilter filter(read(run.name, ActivityField::Extensions));
    if (!filter.Passes(text) && !std::filesystem::is_directory(path, error))
        return false;
    return !isLog(path) && !m_ownPlaces.IsProtected(text);
}

/// Of any activity: two that watch each other's logs would never come to rest.
bool ChangeWatch::isLog(const std::filesystem::path& path) const {
    const auto isSame = [&](const QString& log) {
        const std::filesystem::path other = modNativePath::FromText(log);
        if (other.filename() != path.filename())
            return false;
        const std::optional<FileStamp> stamp = m_services.ownFiles.Stamp(other);
        const std::optional<FileStamp> changed = m_services.ownFiles.Stamp(path);
        return stamp && changed && stamp->id == changed->id;
    };
    if (isSame(m_services.options.ApplicationLog()))
        return true;
    for (int row = 0; row < m_services.list.Rows(); ++row)
        if (isSame(read(m_services.list.NameAt(row), ActivityField::LogFile)))
            return true;
    return false;
}

void ChangeWatch::RunEnded(const QString& name, const RunOutcome& outcome, std::chrono::steady_clock::duration took) {
    const Time now = m_services.clock.MonotonicNow();
    if (const auto followed = m_followed.find(name); followed != m_followed.end())
        followed->mayRunAt = now + restPerRun * took;
    if (outcome.interrupted || outcome.settles.count() == 0) {
        m_again.remove(name);
        return;
    }
    // A file that something writes to all the time is looked at less and less often.
    Again& again = m_again[name];
    if (again.at == Time::max())
        again.doublings = std::min(again.doublings + 1, mostDoublings);
    again.at = now + outcome.settles * (1 << again.doublings);
}

QString ChangeWatch::NotWatched(const QString& name) const {
    return m_followed.value(name).notWatched;
}

void ChangeWatch::Stop() {
    m_followed.clear();
    m_again.clear();
}

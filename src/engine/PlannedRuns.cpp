#include "PlannedRuns.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "Clock.h"
#include "RunState.h"
#include "modLogTime.h"

#include <QCryptographicHash>
#include <algorithm>
#include <utility>

using std::chrono::seconds;

namespace {

constexpr std::chrono::minutes itsMinute(1); // in which a moment runs
constexpr std::chrono::minutes saveDelay(1); // between two writes of the file
constexpr std::chrono::minutes shortest(1);  // of the intervals that are kept
constexpr std::chrono::minutes setBack(1);   // what corrects a clock by less changes no plan
constexpr std::chrono::hours setFar(24);     // a clock that leaps so far was wrong before or is now

const QString keyMember = QStringLiteral("plan");
const QString atMember = QStringLiteral("at");

bool isMoment(const DueFacts::Row& facts) {
    return facts.type == u'3' || facts.type == u'4';
}

} // namespace

PlannedRuns::PlannedRuns(const EngineServices& services, DueFacts& facts, std::filesystem::path folder)
    : m_services(services), m_facts(facts), m_file(services.ownFiles, std::move(folder), ".plans"),
      m_grid(services.clock) {
    connect(&m_services.list, &ActivityList::Readmitted, this, &PlannedRuns::forget);
    connect(&m_services.list, &ActivityList::Refilled, this, &PlannedRuns::dropChanged);
}

Moments::Second PlannedRuns::present() const {
    return std::chrono::floor<seconds>(m_services.clock.Now());
}

Moments::Second PlannedRuns::onTheWall(EvenGrid::Moment moment) const {
    return std::chrono::round<seconds>(
        m_services.clock.Now() +
        std::chrono::duration_cast<std::chrono::system_clock::duration>(moment - m_services.clock.ElapsedNow()));
}

void PlannedRuns::Begin() {
    m_isOn = true;
    m_isEven = m_services.options.EvenIntervals();
    m_runsMissed = m_services.options.RunMissed();
    m_grid.Clear();
    m_plans.clear();
    m_late.clear();
    m_runs.clear();
    m_saved = {};
    m_saveAt.reset();
    modLogTime::ReadTimeZone();
    m_seenAt = m_services.clock.ElapsedNow();
    m_seenTime = present();
    m_offset = Moments::Offset(m_seenTime);
    const QString& file = m_services.file.CurrentPath();
    if (!m_runsMissed) {
        forgetFile(file);
        planAll({});
        return;
    }
    m_saved = m_file.Read(file);
    planAll(m_saved);
    save();
}

/// What is under way may still end without having been done: its plan stays until then.
void PlannedRuns::End(bool goesOn) {
    if (!m_isOn)
        return;
    if (m_runsMissed && goesOn)
        save();
    m_isOn = false;
    if (goesOn)
        return;
    if (m_runsMissed)
        forgetFile(m_savedFor);
    m_savedFor.clear();
    m_late.clear();
    m_runs.clear();
}

bool PlannedRuns::Follow() {
    if (!m_isOn)
        return false;
    const bool isOtherWay = m_isEven != m_services.options.EvenIntervals();
    const bool isOtherMode = m_runsMissed != m_services.options.RunMissed();
    if (isOtherWay) {
        m_isEven = !m_isEven;
        m_grid.Clear();
        m_runs.clear();
    }
    if (isOtherMode) {
        m_runsMissed = !m_runsMissed;
        m_plans.clear();
        m_late.clear();
        if (!m_runsMissed)
            forgetFile(std::exchange(m_savedFor, {}));
    }
    if (isOtherWay || isOtherMode) {
        planAll({});
        saveSoon(true);
    }
    if (m_isEven)
        m_grid.LookForSleep(m_runsMissed);
    if (m_runsMissed) {
        lookAtClock();
        if (m_saveAt && *m_saveAt <= m_services.clock.ElapsedNow())
            save();
    }
    return isOtherWay;
}

void PlannedRuns::planAll(const QJsonObject& kept) {
    if (!m_isEven && !m_runsMissed)
        return;
    for (int row = 0; row < m_services.list.Rows(); ++row) {
        const DueFacts::Row facts = m_facts.Of(row);
        if (!facts.isActive || !m_services.list.IsChecked(row))
            continue;
        const QString name = m_services.list.NameAt(row);
        std::optional<Moments::Second> planned;
        if (const QJsonObject own = kept[name].toObject(); !own.isEmpty() && own[keyMember] == keyOf(name))
            planned = Moments::Second(seconds(own[atMember].toInteger()));
        const std::optional<seconds> length = EvenGrid::LengthOf(facts.type, facts.interval);
        if (m_isEven && length)
            planInterval(name, *length, planned);
        if (!m_runsMissed || !isMoment(facts))
            continue;
        Plan& plan = planOf(name, facts);
        if (planned && *planned + itsMinute <= present()) {
            plan.at = planned;
            plan.from = *planned - seconds(1);
        }
    }
}

/// One that is farther ahead than its length was planned by a clock that was wrong.
void PlannedRuns::planInterval(const QString& name, seconds length, std::optional<Moments::Second> kept) {
    if (kept && *kept - present() <= length)
        m_grid.Resume(name, length, m_services.clock.ElapsedNow() + (*kept - present()));
    else if (!m_grid.Known(name))
        m_grid.Begin(name, length, length);
}

void PlannedRuns::BringForward(const QString& name, const DueFacts::Row& facts, seconds first) {
    if (const std::optional<seconds> length = EvenGrid::LengthOf(facts.type, facts.interval))
        m_grid.Begin(name, *length, first);
}

PlannedRuns::Due PlannedRuns::OfInterval(const QString& name, const DueFacts::Row& facts) {
    const std::optional<seconds> length = EvenGrid::LengthOf(facts.type, facts.interval);
    if (!length)
        return Due::No;
    if (!m_grid.Known(name))
        saveSoon(false);
    const EvenGrid::Next next = m_grid.Of(name, *length);
    if (next.due > m_services.clock.ElapsedNow())
        return Due::No;
    return next.isMissed ? Due::Late : Due::Now;
}

/// The first moment that counts after this one.
std::optional<Moments::Second> PlannedRuns::nextOf(const Plan& plan, Moments::Second after) {
    const std::optional<std::chrono::minutes> time = Moments::TimeOfDay(plan.time);
    if (!time)
        return std::nullopt;
    const bool isDated = plan.type == u'3';
    const QDate first = isDated ? plan.date : Moments::DayOf(after);
    if (!first.isValid())
        return std::nullopt;
    for (int day = 0; day < (isDated ? 1 : 3); ++day)
        if (const Moments::Second at = Moments::On(first.addDays(day), *time); at > after)
            return at;
    return std::nullopt;
}

void PlannedRuns::moveOn(Plan& plan, Moments::Second after) {
    plan.from = after;
    plan.at = nextOf(plan, after);
    plan.isDone = false;
}

PlannedRuns::Plan& PlannedRuns::planOf(const QString& name, const DueFacts::Row& facts) {
    Plan& plan = m_plans[name];
    if (plan.type != facts.type || plan.time != facts.time || plan.date != facts.date) {
        plan = {.type = facts.type, .time = facts.time, .date = facts.date, .at = {}, .from = {}};
        moveOn(plan, std::chrono::floor<std::chrono::minutes>(present()) - seconds(1));
        saveSoon(true);
    }
    return plan;
}

PlannedRuns::Due PlannedRuns::OfMoment(const QString& name, const DueFacts::Row& facts) {
    Plan& plan = planOf(name, facts);
    const Moments::Second now = present();
    if (plan.at && plan.isDone && now >= *plan.at + itsMinute)
        moveOn(plan, now);
    if (!plan.at || now < *plan.at)
        return Due::No;
    return now < *plan.at + itsMinute ? Due::Now : Due::Late;
}

Moments::Second PlannedRuns::WhenDue(const QString& name) const {
    if (const std::optional<EvenGrid::Next> next = m_grid.Known(name))
        return onTheWall(next->due);
    return m_plans.value(name).at.value_or(present());
}

std::optional<Moments::Second> PlannedRuns::Next(const QString& name) const {
    if (const std::optional<EvenGrid::Next> next = m_grid.Known(name))
        return onTheWall(next->due);
    return m_plans.value(name).at;
}

void PlannedRuns::RunBegins(const QString& name, Due due) {
    if (const auto plan = m_plans.find(name); plan != m_plans.end()) {
        if (due == Due::Late) {
            m_late[name] = *plan;
            moveOn(*plan, present());
        }
    } else if (m_grid.Known(name)) {
        m_runs[name] = m_services.clock.ElapsedNow();
    }
    if (m_runsMissed && due == Due::Late)
        save();
}

void PlannedRuns::RunEnded(const QString& name, bool isDone) {
    const bool wasLate = m_late.contains(name);
    const Plan before = m_late.take(name);
    const std::optional<EvenGrid::Moment> begun =
        m_runs.contains(name) ? std::optional(m_runs.take(name)) : std::nullopt;
    if (begun && isDone)
        m_grid.Ran(name, *begun, m_runsMissed);
    if (wasLate && !isDone)
        m_plans[name] = before;
    const auto plan = m_plans.find(name); // one that is ahead was made meanwhile
    if (plan != m_plans.end() && isDone && !plan->isDone && plan->at && *plan->at <= present()) {
        plan->isDone = true;
        saveSoon(true);
    }
    if (begun)
        saveSoon(false);
    if (!isDone && !m_isOn && !m_savedFor.isEmpty())
        save();
}

/// Ticked, unticked or edited: what was planned was of another record.
void PlannedRuns::forget(const QString& name) {
    if (m_services.runState.Closing())
        return; // it is only shown as ticked again
    m_grid.Forget(name);
    m_plans.remove(name);
    m_late.remove(name);
    if (m_isOn)
        saveSoon(true);
}

/// Another program may have changed the file before it was loaded again.
void PlannedRuns::dropChanged() {
    if (!m_isOn || !m_runsMissed || !m_services.file.IsLoaded())
        return;
    for (const QString& name : m_saved.keys())
        if (m_saved[name].toObject()[keyMember] != keyOf(name))
            forget(name);
}

void PlannedRuns::lookAtClock() {
    const Moments::Second time = present();
    const EvenGrid::Moment at = m_services.clock.ElapsedNow();
    const Moments::Second::duration leap =
        (time - m_seenTime) - std::chrono::round<seconds>(at - std::exchange(m_seenAt, at));
    m_seenTime = time;
    const seconds offset = Moments::Offset(time);
    const bool isOtherOffset = std::exchange(m_offset, offset) != offset;
    if (leap > -setBack && leap < setFar && !isOtherOffset)
        return;
    for (Plan& plan : m_plans) {
        const bool isAhead = !plan.at || *plan.at > time;
        // Summer time changes no moment of the zone in which it was planned.
        const bool isOtherZone = isOtherOffset && plan.at != nextOf(plan, plan.from);
        const bool wasSkipped = leap >= setFar && plan.type == u'3'; // a date far off is not missed by a wrong clock
        if ((isAhead && (leap <= -setBack || isOtherZone)) || (!isAhead && wasSkipped))
            moveOn(plan, std::chrono::floor<std::chrono::minutes>(time) - seconds(1));
    }
    saveSoon(true);
}

/// The record as far as it makes a plan; another one has not missed anything.
QString PlannedRuns::keyOf(const QString& name) const {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const ActivityField field :
         {ActivityField::SourceDir, ActivityField::TargetDir, ActivityField::Action, ActivityField::Type,
          ActivityField::Interval, ActivityField::TriggerDate, ActivityField::TriggerDateTime,
          ActivityField::TriggerTime, ActivityField::Daily, ActivityField::RunningMode}) {
        hash.addData(m_services.file.Read(name, field).toUtf8());
        hash.addData(QByteArrayLiteral("\n"));
    }
    return QString::fromLatin1(hash.result().toHex().left(32));
}

/// What the activity has missed if nothing more is heard of this program.
std::optional<Moments::Second> PlannedRuns::toKeep(const QString& name) const {
    if (const auto plan = m_plans.constFind(name); plan != m_plans.constEnd())
        return plan->isDone ? nextOf(*plan, *plan->at) : plan->at;
    const std::optional<EvenGrid::Next> next = m_grid.Known(name);
    if (!next || next->interval < shortest)
        return std::nullopt;
    const EvenGrid::Moment now = m_services.clock.ElapsedNow();
    if (!m_runs.contains(name) || !next->isMissed)
        return onTheWall(next->due);
    return onTheWall(next->due + ((now - next->due) / next->interval + 1) * next->interval);
}

void PlannedRuns::saveSoon(bool atOnce) {
    if (!m_runsMissed)
        return;
    const EvenGrid::Moment at = atOnce ? m_services.clock.ElapsedNow() : m_savedAt + saveDelay;
    m_saveAt = m_saveAt ? std::min(*m_saveAt, at) : at;
}

void PlannedRuns::save() {
    m_saveAt.reset();
    if (!m_services.file.IsLoaded())
        return;
    const QString& file = m_services.file.CurrentPath();
    if (!m_savedFor.isEmpty() && m_savedFor != file)
        forgetFile(m_savedFor);
    m_savedFor = file;
    m_savedAt = m_services.clock.ElapsedNow();
    QJsonObject kept;
    for (int row = 0; row < m_services.list.Rows(); ++row) {
        const QString name = m_services.list.NameAt(row);
        if (!m_services.list.IsChecked(row))
            continue;
        if (const std::optional<Moments::Second> at = toKeep(name))
            kept[name] = QJsonObject{{keyMember, keyOf(name)}, {atMember, qint64{at->time_since_epoch().count()}}};
    }
    if (kept == m_saved)
        return;
    m_saved = kept;
    m_file.Write(file, kept);
}

void PlannedRuns::forgetFile(const QString& activityFile) {
    m_saved = {};
    if (!activityFile.isEmpty() && !m_file.Read(activityFile).isEmpty())
        m_file.Write(activityFile, {});
}

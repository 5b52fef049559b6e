#include "Schedulers.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "ChangeDetection.h"
#include "ChangeWatch.h"
#include "Clock.h"
#include "NextRuns.h"
#include "StoreError.h"
#include "StringTable.h"
#include "TimerEx.h"
#include "modLogTime.h"

#include <QScopedValueRollback>
#include <tuple>

void Schedulers::ConnectTo(MonitoringTimers& timers) {
    m_timers = &timers;
    const auto on = [this](TimerEx& timer, const std::function<void()>& tick) {
        connect(&timer, &TimerEx::Timer, this, [this, tick] { guarded(tick); });
    };
    on(timers.tmrMonitoring, [this] { onSecond(); });
    on(timers.tmrMinutes, [this] { onMinute(); });
    on(timers.tmrHours, [this] { tickOfInterval(IntervalKind::Hours); });
    on(timers.tmrEvenSeconds, [this] { onEven(IntervalKind::Seconds); });
    on(timers.tmrEvenMinutes, [this] { onEven(IntervalKind::Minutes); });
    on(timers.tmrEvenHours, [this] { onEven(IntervalKind::Hours); });
    on(timers.tmrTime, [this] { tickOfMoments(u'4'); });
    on(timers.tmrDate, [this] { tickOfMoments(u'3'); });
    on(timers.tmrChanges, [this] { onChange(); });
}

void Schedulers::guarded(const std::function<void()>& tick) {
    if (!m_allowed || m_services.list.ListBusy() || m_services.runState.Closing())
        return;
    modLogTime::ReadTimeZone();
    m_present = {};
    try {
        if (m_plans.Follow())
            countTheOtherWay();
        tick();
    } catch (const std::exception& error) {
        // Ends this tick only; an exception must not pass through the event loop.
        m_logs.WriteAppLog(QString::fromLocal8Bit(error.what()));
    }
}

/// No run is lost by that, and none doubled: what the counters would have run sooner stays so.
void Schedulers::countTheOtherWay() {
    for (TimerEx* timer : m_timers->Even())
        timer->SetEnabled(m_plans.IsEven());
    if (!m_plans.IsEven()) {
        m_dueMarks.ResetCounters();
        m_dueMarks.ScheduleCheckedActivities();
        return;
    }
    for (int row = 0; row < m_services.list.Rows(); ++row)
        if (const std::optional<std::chrono::seconds> first = m_nextRuns.UntilCounted(row))
            m_plans.BringForward(m_services.list.NameAt(row), m_facts.Of(row), *first);
}

/// The facts of an active row of this type, nothing for any other row.
std::optional<DueFacts::Row> Schedulers::activeOf(int row, char16_t type) {
    DueFacts::Row facts = m_facts.Of(row);
    if (facts.type != type || !facts.isActive || m_services.list.IsTakenOut(m_services.list.NameAt(row)))
        return std::nullopt;
    return facts;
}

bool Schedulers::mayGoOn() const {
    return m_monitoring.IsOn() && !m_services.runState.Closing();
}

RunOutcome Schedulers::run(const QString& name) {
    const auto begun = m_services.clock.MonotonicNow();
    RunOutcome outcome = m_changes.ProcessActivity(name, RunStarter::Schedule);
    const std::optional<int> row = m_services.list.RowOf(name); // events have run
    const DueFacts::Row facts = row ? m_facts.Of(*row) : DueFacts::Row();
    if (facts.isWatched || facts.type == u'3' || facts.type == u'4') // others come by again soon enough
        m_watch.RunEnded(name, outcome, m_services.clock.MonotonicNow() - begun);
    return outcome;
}

RunOutcome Schedulers::runDue(const QString& name) {
    RunOutcome outcome = runInterval(name);
    if (!m_plans.IsEven())
        m_dueMarks.ScheduleActivity(name);
    return outcome;
}

RunOutcome Schedulers::runInterval(const QString& name) {
    const bool isOnce = m_services.file.Read(name, ActivityField::RunningMode) == u"1";
    const auto sayOnce = [&] { m_logs.SetActivityStatus(name, m_services.texts[Text::StoppedAfterOnce]); };
    const bool wasHeld = m_services.runState.Held().contains(name); // and may be again: no log is filled with it
    if (isOnce) {
        m_services.list.TakeOut(name);
        if (!wasHeld)
            sayOnce();
    }
    RunOutcome outcome = run(name);
    if (isOnce && wasHeld && !outcome.held)
        sayOnce();
    // A run that ended early is still to be done. Events have run: the user may have ticked the row again already.
    if (isOnce && !outcome.HasFinished() && m_services.list.IsTakenOut(name))
        m_services.list.Readmit(name);
    else if (isOnce && outcome.HasFinished() && !outcome.directoryMissing)
        m_monitoring.ActivityDone();
    return outcome;
}

/// A run that the end of the program has ended early is not done.
void Schedulers::runPlanned(const QString& name, PlannedRuns::Due due, const std::function<RunOutcome()>& run) {
    if (due == PlannedRuns::Due::Late)
        m_logs.WriteActionLine(name, m_services.texts[Text::MissedRun].arg(modLogTime::Text(m_plans.WhenDue(name))));
    m_plans.RunBegins(name, due);
    const RunOutcome outcome = run();
    m_plans.RunEnded(name, !outcome.interrupted || !m_services.runState.Closing());
}

void Schedulers::repairMark(int row, std::int32_t mark) {
    if (!IntervalCounters::IsBeyond(mark))
        return;
    const QString name = m_services.list.NameAt(row);
    if (const std::optional<std::int32_t> interval = m_dueMarks.Number(name, ActivityField::Interval))
        m_services.file.Write(name, ActivityField::ExceedTime, QString::number(*interval));
}

/// Rows are walked by index against the present count: a run lets events in, and those can rebuild the list, stop
/// monitoring, count the other way or close the program.
void Schedulers::tickOfInterval(IntervalKind kind) {
    bool& isWalking = m_isWalking[static_cast<std::size_t>(kind)];
    if (m_plans.IsEven() || isWalking)
        return;
    const QScopedValueRollback walking(isWalking, true);
    const bool isOfSeconds = kind == IntervalKind::Seconds;
    const QChar type(static_cast<char16_t>(u'0' + static_cast<int>(kind)));
    std::int32_t& counter = m_dueMarks.Counter(kind);
    IntervalCounters::BeginTick(kind, counter);
    const std::int32_t atBegin = counter; // a run in minute 60 sets it to 0
    for (int row = 0; row < m_services.list.Rows() && mayGoOn() && !m_plans.IsEven(); ++row) {
        if (isOfSeconds && !m_services.list.IsChecked(row))
            continue;
        const DueFacts::Row facts = m_facts.Of(row);
        if (facts.type != type || !facts.mark)
            continue;
        const bool isActive = facts.isActive && !m_services.list.IsTakenOut(m_services.list.NameAt(row));
        if (!isOfSeconds && !isActive)
            continue;
        if (!IntervalCounters::IsDue(kind, isOfSeconds ? counter : atBegin, *facts.mark))
            repairMark(row, *facts.mark);
        else if (isActive)
            std::ignore = runDue(m_services.list.NameAt(row));
    }
    if (mayGoOn())
        IntervalCounters::EndTick(kind, counter);
}

void Schedulers::onSecond() {
    tickOfInterval(IntervalKind::Seconds);
    if (mayGoOn())
        m_monitoring.CheckAllIdle();
}

void Schedulers::onMinute() {
    // A file that failed to load may be readable again, and there may be no user to refresh the list.
    if (!m_services.file.IsLoaded() && m_services.file.Load())
        m_services.list.Refill();
    tickOfInterval(IntervalKind::Minutes);
}

void Schedulers::onEven(IntervalKind kind) {
    bool& isWalking = m_isWalking[static_cast<std::size_t>(kind)];
    if (!m_plans.IsEven() || isWalking)
        return;
    const QScopedValueRollback walking(isWalking, true);
    const auto type = static_cast<char16_t>(u'0' + static_cast<int>(kind));
    for (int row = 0; row < m_services.list.Rows() && mayGoOn() && m_plans.IsEven(); ++row) {
        const std::optional<DueFacts::Row> facts = activeOf(row, type);
        if (!facts || !m_services.list.IsChecked(row))
            continue;
        const QString name = m_services.list.NameAt(row);
        if (const PlannedRuns::Due due = m_plans.OfInterval(name, *facts); due != PlannedRuns::Due::No)
            runPlanned(name, due, [&] { return runDue(name); });
    }
}

/// Not composed again for every row; a run between two rows takes its time.
const Schedulers::Moment& Schedulers::present() {
    const std::chrono::system_clock::time_point now = m_services.clock.Now();
    const auto second = std::chrono::floor<std::chrono::seconds>(now);
    if (m_present.second != second)
        m_present = {second, modLogTime::HoursAndMinutes(now),
                     QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(now)).date()};
    return m_present;
}

PlannedRuns::Due Schedulers::dueNow(int row, const DueFacts::Row& facts) {
    if (m_plans.KeepsMoments())
        return m_plans.OfMoment(m_services.list.NameAt(row), facts);
    const bool isToday = facts.type != u'3' || facts.date == present().date;
    return isToday && facts.time == present().time ? PlannedRuns::Due::Now : PlannedRuns::Due::No;
}

void Schedulers::tickOfMoments(char16_t type) {
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        const std::optional<DueFacts::Row> facts = activeOf(row, type);
        const PlannedRuns::Due due = facts ? dueNow(row, *facts) : PlannedRuns::Due::No;
        if (due == PlannedRuns::Due::No)
            continue;
        const QString name = m_services.list.NameAt(row);
        runPlanned(name, due, [&] { return runOnTime(name); });
    }
}

void Schedulers::onChange() {
    QStringList wanted = m_facts.Watched();
    if (wanted.isEmpty() && m_watch.IsIdle())
        return;
    const auto mayRun = [this](const QString& name) {
        const std::optional<int> row = m_services.list.RowOf(name);
        return row && mayRunNow(*row);
    };
    wanted.removeIf([&](const QString& name) { return !mayRun(name); });
    m_watch.Follow(wanted);
    for (const QString& name : m_watch.TakeDue())
        if (mayGoOn() && mayRun(name))
            runChanged(*m_services.list.RowOf(name));
}

bool Schedulers::mayRunNow(int row) {
    return m_facts.Of(row).isActive && m_services.list.IsChecked(row) &&
           !m_services.list.IsTakenOut(m_services.list.NameAt(row));
}

/// Its place in the schedule stays.
void Schedulers::runChanged(int row) {
    const QChar type = m_facts.Of(row).type;
    const QString name = m_services.list.NameAt(row);
    std::ignore = type == u'3' || type == u'4' ? runOnTime(name) : runInterval(name);
}

QString Schedulers::appointment(const QString& name) const {
    QStringList fields;
    for (const ActivityField field : {ActivityField::Type, ActivityField::TriggerDate, ActivityField::TriggerDateTime,
                                      ActivityField::TriggerTime, ActivityField::Daily})
        fields.append(m_services.file.Read(name, field));
    return fields.join(u'\n');
}

RunOutcome Schedulers::runOnTime(const QString& name) {
    const auto read = [&](ActivityField field) { return m_services.file.Read(name, field); };
    const bool isLast = read(ActivityField::Type) == u"3" || read(ActivityField::Daily).toInt() == 0;
    const QString before = appointment(name);
    RunOutcome outcome = run(name);
    // What was ended early is still to be done, and so is what the user has put off to another time meanwhile.
    if (isLast && outcome.HasFinished() && appointment(name) == before)
        finishForGood(name, !outcome.directoryMissing);
    if (mayGoOn())
        m_monitoring.CheckAllIdle();
    return outcome;
}

void Schedulers::finishForGood(const QString& name, bool hasRun) {
    m_logs.SetActivityStatus(name,
                             m_services.texts[Text::MonitoringQuote] + name + u" " + m_services.texts[Text::Stopped]);
    m_services.file.Write(name, ActivityField::Active, QStringLiteral("0"));
    m_services.list.SetChecked(name, false);
    if (hasRun)
        m_monitoring.ActivityDone();
    try {
        m_services.file.Save();
    } catch (const StoreError& error) {
        // The document in memory still knows that this activity is done: nothing is loaded over it.
        m_logs.SetActivityStatus(name, error.Text());
        m_logs.WriteAppLog(error.Text());
        return;
    }
    m_services.list.Refill();
}

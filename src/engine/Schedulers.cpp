#include "Schedulers.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "ChangeDetection.h"
#include "ChangeWatch.h"
#include "Clock.h"
#include "StoreError.h"
#include "StringTable.h"
#include "TimerEx.h"
#include "modLogTime.h"

void Schedulers::ConnectTo(MonitoringTimers& timers) {
    connect(&timers.tmrMonitoring, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onSecond); });
    connect(&timers.tmrMinutes, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onMinute); });
    connect(&timers.tmrHours, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onHour); });
    connect(&timers.tmrTime, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onTimeOfDay); });
    connect(&timers.tmrDate, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onDate); });
    connect(&timers.tmrChanges, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onChange); });
}

void Schedulers::guarded(void (Schedulers::*tick)()) {
    if (!m_allowed || m_services.list.ListBusy() || m_services.runState.Closing())
        return;
    modLogTime::ReadTimeZone();
    m_present = {};
    try {
        (this->*tick)();
    } catch (const std::exception& error) {
        // Ends this tick only; an exception must not pass through the event loop.
        m_logs.WriteAppLog(QString::fromLocal8Bit(error.what()));
    }
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
    const RunOutcome outcome = m_changes.ProcessActivity(name, RunStarter::Schedule);
    const std::optional<int> row = m_services.list.RowOf(name); // events have run
    const DueFacts::Row facts = row ? m_facts.Of(*row) : DueFacts::Row();
    if (facts.isWatched || facts.type == u'3' || facts.type == u'4') // others come by again soon enough
        m_watch.RunEnded(name, outcome, m_services.clock.MonotonicNow() - begun);
    return outcome;
}

void Schedulers::runDue(const QString& name) {
    runInterval(name);
    m_dueMarks.ScheduleActivity(name);
}

void Schedulers::runInterval(const QString& name) {
    const bool isOnce = m_services.file.Read(name, ActivityField::RunningMode) == u"1";
    const auto sayOnce = [&] { m_logs.SetActivityStatus(name, m_services.texts[Text::StoppedAfterOnce]); };
    const bool wasHeld = m_services.runState.Held().contains(name); // and may be again: no log is filled with it
    if (isOnce) {
        m_services.list.TakeOut(name);
        if (!wasHeld)
            sayOnce();
    }
    const RunOutcome outcome = run(name);
    if (isOnce && wasHeld && !outcome.held)
        sayOnce();
    // A run that ended early is still to be done. Events have run: the user may have ticked the row again already.
    const bool isDone = outcome.HasFinished();
    if (isOnce && !isDone && m_services.list.IsTakenOut(name))
        m_services.list.Readmit(name);
    else if (isOnce && isDone && !outcome.directoryMissing)
        m_monitoring.ActivityDone();
}

void Schedulers::repairMark(int row, std::int32_t mark) {
    if (mark < 60)
        return;
    const QString name = m_services.list.NameAt(row);
    if (const std::optional<std::int32_t> interval = m_dueMarks.Number(name, ActivityField::Interval))
        m_services.file.Write(name, ActivityField::ExceedTime, QString::number(*interval));
}

// Rows are walked by index against the present count: a run lets events in, and those can rebuild the list, stop
// monitoring or close the program.
void Schedulers::onSecond() {
    std::int32_t& counter = m_dueMarks.SecondCounter;
    if (counter >= 59)
        counter = 0;
    m_anyWatched = false;
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        if (!m_services.list.IsChecked(row))
            continue;
        const DueFacts::Row facts = m_facts.Of(row);
        m_anyWatched = m_anyWatched || facts.isWatched;
        if (facts.type != u'0' || !facts.mark)
            continue;
        if (*facts.mark != counter)
            repairMark(row, *facts.mark);
        else if (facts.isActive)
            runDue(m_services.list.NameAt(row));
    }
    if (!mayGoOn())
        return;
    ++counter;
    m_monitoring.CheckAllIdle();
}

void Schedulers::tickOfInterval(char16_t type, std::int32_t counter, bool dueFromMarkOn) {
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        const std::optional<DueFacts::Row> facts = activeOf(row, type);
        if (!facts || !facts->mark)
            continue;
        if (counter == *facts->mark || (dueFromMarkOn && counter > *facts->mark))
            runDue(m_services.list.NameAt(row));
        else
            repairMark(row, *facts->mark);
    }
}

void Schedulers::onMinute() {
    // A file that failed to load may be readable again, and there may be no user to refresh the list.
    if (!m_services.file.IsLoaded() && m_services.file.Load())
        m_services.list.Refill();
    std::int32_t& counter = m_dueMarks.MinuteCounter;
    counter = counter < 60 ? counter + 1 : 0;
    tickOfInterval(u'1', counter, false);
}

void Schedulers::onHour() {
    std::int32_t& counter = m_dueMarks.HourCounter;
    counter = counter <= 23 ? counter + 1 : 0;
    tickOfInterval(u'2', counter, true);
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

void Schedulers::onTimeOfDay() {
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        const std::optional<DueFacts::Row> facts = activeOf(row, u'4');
        if (!facts || facts->time != present().time)
            continue;
        const QString name = m_services.list.NameAt(row);
        runOnTime(name, m_services.file.Read(name, ActivityField::Daily).toInt() == 0);
    }
}

void Schedulers::onDate() {
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        const std::optional<DueFacts::Row> facts = activeOf(row, u'3');
        if (facts && facts->date == present().date && facts->time == present().time)
            runOnTime(m_services.list.NameAt(row), true);
    }
}

void Schedulers::onChange() {
    QStringList watched;
    for (int row = 0; m_anyWatched && row < m_services.list.Rows(); ++row)
        if (m_facts.Of(row).isWatched && mayRunNow(row))
            watched.append(m_services.list.NameAt(row));
    if (watched.isEmpty() && m_watch.IsIdle())
        return;
    m_watch.Follow(watched);
    for (const QString& name : m_watch.TakeDue())
        if (const std::optional<int> row = m_services.list.RowOf(name); row && mayGoOn() && mayRunNow(*row))
            runChanged(*row);
}

bool Schedulers::mayRunNow(int row) {
    return m_facts.Of(row).isActive && m_services.list.IsChecked(row) &&
           !m_services.list.IsTakenOut(m_services.list.NameAt(row));
}

/// Its place in the schedule stays.
void Schedulers::runChanged(int row) {
    const DueFacts::Row facts = m_facts.Of(row);
    const QString name = m_services.list.NameAt(row);
    if (facts.type == u'3' || facts.type == u'4')
        runOnTime(name, !facts.isWatched);
    else
        runInterval(name);
}

QString Schedulers::appointment(const QString& name) const {
    QStringList fields;
    for (const ActivityField field : {ActivityField::Type, ActivityField::TriggerDate, ActivityField::TriggerDateTime,
                                      ActivityField::TriggerTime, ActivityField::Daily})
        fields.append(m_services.file.Read(name, field));
    return fields.join(u'\n');
}

void Schedulers::runOnTime(const QString& name, bool isLast) {
    const QString before = appointment(name);
    const RunOutcome outcome = run(name);
    // What was ended early is still to be done, and so is what the user has put off to another time meanwhile.
    if (isLast && outcome.HasFinished() && appointment(name) == before)
        finishForGood(name, !outcome.directoryMissing);
    if (mayGoOn())
        m_monitoring.CheckAllIdle();
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

#include "Schedulers.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "ChangeDetection.h"
#include "Clock.h"
#include "StoreError.h"
#include "StringTable.h"
#include "TimerEx.h"
#include "modLogTime.h"
#include "modTriggerDate.h"

void Schedulers::ConnectTo(MonitoringTimers& timers) {
    connect(&timers.tmrMonitoring, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onSecond); });
    connect(&timers.tmrMinutes, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onMinute); });
    connect(&timers.tmrHours, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onHour); });
    connect(&timers.tmrTime, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onTimeOfDay); });
    connect(&timers.tmrDate, &TimerEx::Timer, this, [this] { guarded(&Schedulers::onDate); });
}

void Schedulers::guarded(void (Schedulers::*tick)()) {
    if (!m_allowed || m_services.list.ListBusy() || m_services.runState.Closing())
        return;
    modLogTime::ReadTimeZone();
    try {
        (this->*tick)();
    } catch (const std::exception& error) {
        // Ends this tick only; an exception must not pass through the event loop.
        m_logs.WriteAppLog(QString::fromUtf8(error.what()));
    }
}

bool Schedulers::isActive(int row, const QString& type) const {
    const QString name = m_services.list.NameAt(row);
    return m_services.file.Read(name, ActivityField::Type) == type &&
           m_services.file.Read(name, ActivityField::Active) == u"1" && !m_services.list.IsTakenOut(name) &&
           !m_services.list.IsNamesake(row);
}

bool Schedulers::mayGoOn() const {
    return m_monitoring.IsOn() && !m_services.runState.Closing();
}

void Schedulers::runDue(const QString& name) {
    const bool isOnce = m_services.file.Read(name, ActivityField::RunningMode) == u"1";
    if (isOnce) {
        m_services.list.TakeOut(name);
        m_logs.SetActivityStatus(name, m_services.texts[Text::StoppedAfterOnce]);
    }
    const RunOutcome outcome = m_changes.ProcessActivity(name, RunStarter::Schedule);
    // A run that ended early is still to be done. Events have run: the user may have ticked the row again already.
    if (isOnce && outcome.interrupted && m_services.list.IsTakenOut(name))
        m_services.list.Readmit(name);
    else if (isOnce && !outcome.interrupted && !outcome.directoryMissing)
        m_monitoring.ActivityDone();
    m_dueMarks.ScheduleActivity(name);
}

void Schedulers::repairMark(const QString& name, std::int32_t mark) {
    if (mark < 60)
        return;
    if (const std::optional<std::int32_t> interval = m_dueMarks.Number(name, ActivityField::Interval))
        m_services.file.Write(name, ActivityField::ExceedTime, QString::number(*interval));
}

// Rows are walked by index against the present count: a run lets events in, and those can rebuild the list, stop
// monitoring or close the program.
void Schedulers::onSecond() {
    std::int32_t& counter = m_dueMarks.SecondCounter;
    if (counter >= 59)
        counter = 0;
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        const QString name = m_services.list.NameAt(row);
        if (!m_services.list.IsChecked(row) || m_services.file.Read(name, ActivityField::Type) != u"0")
            continue;
        const std::optional<std::int32_t> mark = m_dueMarks.Number(name, ActivityField::ExceedTime);
        if (!mark)
            continue;
        if (*mark != counter)
            repairMark(name, *mark);
        else if (m_services.file.Read(name, ActivityField::Active) == u"1")
            runDue(name);
    }
    if (!mayGoOn())
        return;
    ++counter;
    m_monitoring.CheckAllIdle();
}

void Schedulers::tickOfInterval(const QString& type, std::int32_t counter, bool dueFromMarkOn) {
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        const QString name = m_services.list.NameAt(row);
        if (!isActive(row, type))
            continue;
        const std::optional<std::int32_t> mark = m_dueMarks.Number(name, ActivityField::ExceedTime);
        if (!mark)
            continue;
        if (counter == *mark || (dueFromMarkOn && counter > *mark))
            runDue(name);
        else
            repairMark(name, *mark);
    }
}

void Schedulers::onMinute() {
    // A file that failed to load may be readable again, and there may be no user to refresh the list.
    if (!m_services.file.IsLoaded() && m_services.file.Load())
        m_services.list.Refill();
    std::int32_t& counter = m_dueMarks.MinuteCounter;
    counter = counter < 60 ? counter + 1 : 0;
    tickOfInterval(QStringLiteral("1"), counter, false);
}

void Schedulers::onHour() {
    std::int32_t& counter = m_dueMarks.HourCounter;
    counter = counter <= 23 ? counter + 1 : 0;
    tickOfInterval(QStringLiteral("2"), counter, true);
}

void Schedulers::onTimeOfDay() {
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        const QString name = m_services.list.NameAt(row);
        if (isActive(row, QStringLiteral("4")) && modLogTime::HoursAndMinutes(m_services.clock.Now()) ==
                                                      m_services.file.Read(name, ActivityField::TriggerTime))
            runOnTime(name, m_services.file.Read(name, ActivityField::Daily).toInt() == 0);
    }
}

void Schedulers::onDate() {
    for (int row = 0; row < m_services.list.Rows() && mayGoOn(); ++row) {
        const QString name = m_services.list.NameAt(row);
        if (!isActive(row, QStringLiteral("3")))
            continue;
        const std::chrono::system_clock::time_point now = m_services.clock.Now();
        const QDate today = QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(now)).date();
        if (modTriggerDate::Read(m_services.file.Read(name, ActivityField::TriggerDate), m_locale) == today &&
            modLogTime::HoursAndMinutes(now) == m_services.file.Read(name, ActivityField::TriggerDateTime))
            runOnTime(name, true);
    }
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
    const RunOutcome outcome = m_changes.ProcessActivity(name, RunStarter::Schedule);
    // What was ended early is still to be done, and so is what the user has put off to another time meanwhile.
    if (isLast && !outcome.interrupted && appointment(name) == before)
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

#include "MonitoringController.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "DueMarks.h"
#include "Machine.h"
#include "PlannedRuns.h"
#include "Prompter.h"
#include "RunState.h"
#include "StringTable.h"
#include "TimerEx.h"

MonitoringController::MonitoringController(const EngineServices& services, ActivityLogs& logs, DueMarks& dueMarks,
                                           PlannedRuns& plans, MonitoringTimers& timers)
    : m_services(services), m_logs(logs), m_dueMarks(dueMarks), m_plans(plans), m_timers(timers) {
    connect(&m_services.file, &ActivityFile::Saved, this, &MonitoringController::lockPresentFile);
    connect(&m_services.list, &ActivityList::Readmitted, this, &MonitoringController::readmitted);
    connect(&m_services.list, &ActivityList::Refilled, this, &MonitoringController::refilled);
}

MonitoringController::~MonitoringController() = default;

void MonitoringController::setOn(bool on) {
    if (m_on == on)
        return;
    m_on = on;
    Q_EMIT StateChanged(on);
}

void MonitoringController::ToggleMonitoring() {
    if (m_on) {
        StopMonitoring();
        return;
    }
    setOn(true);
    StartMonitoring();
}

bool MonitoringController::anyRowChecked() const {
    for (int row = 0; row < m_services.list.Rows(); ++row)
        if (m_services.list.IsChecked(row))
            return true;
    return false;
}

void MonitoringController::refuseStart(Text text) {
    setOn(false);
    m_services.prompter.Ask({m_services.texts[text], m_services.texts[Text::StartMonitoringTitle],
                             MessageIcon::Exclamation, MessageButtons::Ok});
}

void MonitoringController::StartMonitoring() {
    if (m_services.list.Rows() == 0)
        return refuseStart(Text::NothingToMonitor);
    m_services.list.ReadmitAll();
    if (!anyRowChecked())
        return refuseStart(Text::NoDirectoryToMonitor);
    LockRefusal refusal{};
    m_lock = m_services.lock.Take(m_services.file.CurrentPath(), refusal);
    if (!m_lock) {
        refuseStart(refusal == LockRefusal::HeldElsewhere ? Text::MonitoredElsewhere : Text::NoLockPossible);
        Q_EMIT LockRefused();
        return;
    }
    m_doneByRun = false;
    m_dueMarks.ClearDueMarks();
    m_dueMarks.ScheduleCheckedActivities();
    m_plans.Begin();

    QStringList names;
    for (int row = 0; row < m_services.list.Rows(); ++row) {
        if (!m_services.list.IsChecked(row))
            continue;
        names.append(m_services.list.NameAt(row));
        m_services.list.SetText(names.last(), ActivityList::Count, QStringLiteral("0"));
    }
    m_logs.WriteAppLog(m_services.texts[Text::MonitoringInProgress] + names.join(QStringLiteral("; ")) + u"'");

    m_timers.tmrMonitoring.SetEnabled(true);
    m_timers.tmrHours.SetEnabled(true);
    m_timers.tmrMinutes.SetEnabled(true);
    m_dueMarks.ResetCounters();
    for (TimerEx* timer : m_timers.Even())
        timer->SetEnabled(m_plans.IsEven());
    m_timers.tmrDate.SetEnabled(true);
    m_timers.tmrTime.SetEnabled(true);
    m_timers.tmrChanges.SetEnabled(true);
    CheckAllIdle();
    writeSessionLine(Text::MonitoringStarted, true);
}

void MonitoringController::StopMonitoring() {
    setOn(false);
    m_plans.End(m_services.runState.Closing());
    m_services.runState.ForgetHeld();
    m_dueMarks.ClearDueMarks();
    m_dueMarks.ScheduleCheckedActivities();
    m_timers.tmrMonitoring.SetEnabled(false);
    m_timers.tmrHours.SetEnabled(false);
    m_timers.tmrMinutes.SetEnabled(false);
    for (TimerEx* timer : m_timers.Even())
        timer->SetEnabled(false);
    m_timers.tmrTime.SetEnabled(false);
    m_timers.tmrDate.SetEnabled(false);
    m_timers.tmrChanges.SetEnabled(false);
    m_logs.WriteAppLog(m_services.texts[Text::MonitoringFinished] + u"\r\n\r\n");
    writeSessionLine(Text::MonitoringFinished, false);
    const QString idle = m_services.texts[Text::Idle];
    m_services.list.SetStatuses(idle, idle);
    m_lock.reset();
    m_presentLock.reset();
}

std::optional<LockRefusal> MonitoringController::MoveTo(const QString& path) {
    LockRefusal refusal{};
    EngineLock::Token lock = m_services.lock.Take(path, refusal);
    if (!lock)
        return refusal;
    m_services.file.SaveAs(path);
    if (m_on)
        m_lock = std::move(lock);
    return std::nullopt;
}

/// The lock taken at the start stays: a hard link may still lead to the file as it was then. Should the new one be
/// refused, that one and the path are locked all the same.
void MonitoringController::lockPresentFile() {
    LockRefusal ignored{};
    if (!m_on)
        return;
    if (EngineLock::Token lock = m_services.lock.Take(m_services.file.CurrentPath(), ignored))
        m_presentLock = std::move(lock);
}

void MonitoringController::writeSessionLine(Text text, bool blankLineFirst) {
    for (int row = 0; row < m_services.list.Rows(); ++row)
        if (!m_services.list.IsNamesake(row))
            m_logs.WriteActivityLog(m_services.list.NameAt(row), m_services.texts[text], blankLineFirst);
}

void MonitoringController::CheckAllIdle() {
    if (m_services.list.ListBusy())
        return;
    const QString idle = m_services.texts[Text::Idle];
    const bool anyChecked =
        m_on ? m_services.list.SetStatuses(m_services.texts[Text::Active], idle, m_services.runState.Held())
             : m_services.list.SetStatuses(idle, idle);
    m_doneByRun = m_doneByRun && !anyChecked && m_services.file.IsLoaded();
    // While a run is on the stack its activity may be the one that was just taken out: it must end first. A list that
    // is empty because its file could not be loaded says nothing about the activities.
    if (!anyChecked && m_on && !m_services.runState.Running() && m_services.file.IsLoaded())
        endByItself();
}

void MonitoringController::ActivityDone() {
    m_doneByRun = m_on && !anyRowChecked();
}

void MonitoringController::readmitted(const QString& name) {
    m_doneByRun = false;
    const std::optional<int> row = m_services.list.RowOf(name);
    if (m_on && row && m_services.list.IsChecked(*row))
        m_dueMarks.ScheduleActivity(name);
}

void MonitoringController::refilled() {
    if (!m_on)
        return;
    lockPresentFile();
    m_dueMarks.ScheduleUnmarkedActivities();
}

void MonitoringController::endByItself() {
    const bool powerOff = m_doneByRun && m_services.options.ShutdownWhenIdle();
    const QString last = m_services.runState.LastProcessed();
    StopMonitoring();
    if (powerOff) {
        const QString line = m_services.texts[Text::ShutdownAfterActivity] + last + m_services.texts[Text::ShutDown];
        m_logs.SetActivityStatus(last, line);
        m_logs.WriteAppLog(line);
    }
    // The caller is mostly a timer's handler, and that timer is dead until it returns: no box may keep it.
    QMetaObject::invokeMethod(
        this, [this, powerOff, last] { tellEnd(powerOff, last); }, Qt::QueuedConnection);
}

void MonitoringController::tellEnd(bool wantsPowerOff, const QString& last) {
    if (m_services.runState.Closing())
        return;
    if (wantsPowerOff) {
        const Text failure = powerOff();
        if (failure != Text::None) {
            m_logs.SetActivityStatus(last, m_services.texts[failure]);
            m_logs.WriteAppLog(m_services.texts[failure]);
        }
    }
    if (!m_on)
        m_services.prompter.Ask({m_services.texts[Text::AllIdle], m_services.texts[Text::MonitoringFinished],
                                 MessageIcon::Information, MessageButtons::Ok});
}

/// None when the system has accepted the request, else the text that says why not.
Text MonitoringController::powerOff() {
    const auto atWork = [this] { return m_on || m_services.runState.Running() || m_services.runState.Closing(); };
    if (atWork() ||
        m_services.prompter.Ask({m_services.texts[Text::WillSwitchOff], m_services.texts[Text::MonitoringFinished],
                                 MessageIcon::Exclamation, MessageButtons::OkCancel, std::chrono::seconds(60)}) !=
            MessageAnswer::Ok ||
        atWork())
        return Text::SwitchOffCancelled;
    return m_services.power.PowerOff() ? Text::None : Text::NotSwitchedOff;
}

#include "MonitoringController.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "DueMarks.h"
#include "EngineOptions.h"
#include "Machine.h"
#include "MonitoringTimers.h"
#include "Prompter.h"
#include "RunState.h"
#include "StringTable.h"

MonitoringController::MonitoringController(const Parts& parts) : m_parts(parts) {
    connect(&m_parts.file, &ActivityFile::Saved, this, &MonitoringController::lockPresentFile);
    connect(&m_parts.list, &ActivityList::Readmitted, this, &MonitoringController::readmitted);
    connect(&m_parts.list, &ActivityList::Refilled, this, &MonitoringController::refilled);
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
    for (int row = 0; row < m_parts.list.Rows(); ++row)
        if (m_parts.list.IsChecked(row))
            return true;
    return false;
}

void MonitoringController::refuseStart(Text text) {
    setOn(false);
    m_parts.prompter.Ask(
        {m_parts.texts[text], m_parts.texts[Text::StartMonitoringTitle], MessageIcon::Exclamation, MessageButtons::Ok});
}

void MonitoringController::StartMonitoring() {
    if (m_parts.list.Rows() == 0)
        return refuseStart(Text::NothingToMonitor);
    m_parts.list.ReadmitAll();
    if (!anyRowChecked())
        return refuseStart(Text::NoDirectoryToMonitor);
    LockRefusal refusal{};
    m_lock = m_parts.engineLock.Take(m_parts.file.CurrentPath(), refusal);
    if (!m_lock) {
        refuseStart(refusal == LockRefusal::HeldElsewhere ? Text::MonitoredElsewhere : Text::NoLockPossible);
        Q_EMIT LockRefused();
        return;
    }
    m_doneByRun = false;
    m_parts.dueMarks.ClearDueMarks();
    m_parts.dueMarks.ScheduleCheckedActivities();

    QStringList names;
    for (int row = 0; row < m_parts.list.Rows(); ++row) {
        if (!m_parts.list.IsChecked(row))
            continue;
        names.append(m_parts.list.NameAt(row));
        m_parts.list.SetText(names.last(), ActivityList::Count, QStringLiteral("0"));
    }
    m_parts.logs.WriteAppLog(m_parts.texts[Text::MonitoringInProgress] + names.join(QStringLiteral("; ")) + u"'");

    m_parts.timers.tmrMonitoring.SetEnabled(true);
    m_parts.timers.tmrHours.SetEnabled(true);
    m_parts.timers.tmrMinutes.SetEnabled(true);
    m_parts.dueMarks.ResetCounters();
    m_parts.timers.tmrDate.SetEnabled(true);
    m_parts.timers.tmrTime.SetEnabled(true);
    CheckAllIdle();
    writeSessionLine(Text::MonitoringStarted, true);
}

void MonitoringController::StopMonitoring() {
    setOn(false);
    m_parts.dueMarks.ClearDueMarks();
    m_parts.dueMarks.ScheduleCheckedActivities();
    m_parts.timers.tmrMonitoring.SetEnabled(false);
    m_parts.timers.tmrHours.SetEnabled(false);
    m_parts.timers.tmrMinutes.SetEnabled(false);
    m_parts.timers.tmrTime.SetEnabled(false);
    m_parts.timers.tmrDate.SetEnabled(false);
    m_parts.logs.WriteAppLog(m_parts.texts[Text::MonitoringFinished] + u"\r\n\r\n");
    writeSessionLine(Text::MonitoringFinished, false);
    for (int row = 0; row < m_parts.list.Rows(); ++row)
        m_parts.list.SetText(m_parts.list.NameAt(row), ActivityList::Status, m_parts.texts[Text::Idle]);
    m_lock.reset();
    m_presentLock.reset();
}

std::optional<LockRefusal> MonitoringController::MoveTo(const QString& path) {
    LockRefusal refusal{};
    EngineLock::Token lock = m_parts.engineLock.Take(path, refusal);
    if (!lock)
        return refusal;
    m_parts.file.SaveAs(path);
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
    if (EngineLock::Token lock = m_parts.engineLock.Take(m_parts.file.CurrentPath(), ignored))
        m_presentLock = std::move(lock);
}

void MonitoringController::writeSessionLine(Text text, bool blankLineFirst) {
    for (int row = 0; row < m_parts.list.Rows(); ++row)
        m_parts.logs.WriteActivityLog(m_parts.list.NameAt(row), m_parts.texts[text], blankLineFirst);
}

void MonitoringController::CheckAllIdle() {
    if (m_parts.list.ListBusy())
        return;
    bool anyChecked = false;
    for (int row = 0; row < m_parts.list.Rows(); ++row) {
        const bool checked = m_parts.list.IsChecked(row);
        anyChecked = anyChecked || checked;
        m_parts.list.SetText(m_parts.list.NameAt(row), ActivityList::Status,
                             m_parts.texts[checked && m_on ? Text::Active : Text::Idle]);
    }
    m_doneByRun = m_doneByRun && !anyChecked && m_parts.file.IsLoaded();
    // While a run is on the stack its activity may be the one that was just taken out: it must end first. A list that
    // is empty because its file could not be loaded says nothing about the activities.
    if (!anyChecked && m_on && !m_parts.runState.Running() && m_parts.file.IsLoaded())
        endByItself();
}

void MonitoringController::ActivityDone() {
    m_doneByRun = m_on && !anyRowChecked();
}

void MonitoringController::readmitted(const QString& name) {
    m_doneByRun = false;
    const std::optional<int> row = m_parts.list.RowOf(name);
    if (m_on && row && m_parts.list.IsChecked(*row))
        m_parts.dueMarks.ScheduleActivity(name);
}

void MonitoringController::refilled() {
    if (!m_on)
        return;
    lockPresentFile();
    m_parts.dueMarks.ScheduleUnmarkedActivities();
}

void MonitoringController::endByItself() {
    const bool powerOff = m_doneByRun && m_parts.options.ShutdownWhenIdle();
    const QString last = m_parts.runState.LastProcessed();
    StopMonitoring();
    if (powerOff) {
        const QString line = m_parts.texts[Text::ShutdownAfterActivity] + last + m_parts.texts[Text::ShutDown];
        m_parts.logs.SetActivityStatus(last, line);
        m_parts.logs.WriteAppLog(line);
    }
    // The caller is mostly a timer's handler, and that timer is dead until it returns: no box may keep it.
    QMetaObject::invokeMethod(
        this, [this, powerOff, last] { tellEnd(powerOff, last); }, Qt::QueuedConnection);
}

void MonitoringController::tellEnd(bool wantsPowerOff, const QString& last) {
    if (m_parts.runState.Closing())
        return;
    if (wantsPowerOff) {
        const Text failure = powerOff();
        if (failure != Text::None) {
            m_parts.logs.SetActivityStatus(last, m_parts.texts[failure]);
            m_parts.logs.WriteAppLog(m_parts.texts[failure]);
        }
    }
    if (!m_on)
        m_parts.prompter.Ask({m_parts.texts[Text::AllIdle], m_parts.texts[Text::MonitoringFinished],
                              MessageIcon::Information, MessageButtons::Ok});
}

/// None when the system has accepted the request, else the text that says why not.
Text MonitoringController::powerOff() {
    const auto atWork = [this] { return m_on || m_parts.runState.Running() || m_parts.runState.Closing(); };
    if (atWork() ||
        m_parts.prompter.Ask({m_parts.texts[Text::WillSwitchOff], m_parts.texts[Text::MonitoringFinished],
                              MessageIcon::Exclamation, MessageButtons::OkCancel, std::chrono::seconds(60)}) !=
            MessageAnswer::Ok ||
        atWork())
        return Text::SwitchOffCancelled;
    return m_parts.power.PowerOff() ? Text::None : Text::NotSwitchedOff;
}

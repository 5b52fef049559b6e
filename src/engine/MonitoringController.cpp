#include "MonitoringController.h"
#include "ActivityFile.h"
#include "ActivityList.h"
#include "ActivityLogs.h"
#include "DueMarks.h"
#include "EngineOptions.h"
#include "MonitoringTimers.h"
#include "PowerControl.h"
#include "Prompter.h"
#include "RunState.h"
#include "StringTable.h"

MonitoringController::MonitoringController(const Parts& parts) : m_parts(parts) {
    connect(&m_parts.file, &ActivityFile::Saved, this, &MonitoringController::lockSavedFile);
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

void MonitoringController::refuseStart(int textId) {
    setOn(false);
    m_parts.prompter.Ask(
        {m_parts.texts.Text(textId), m_parts.texts.Text(216), MessageIcon::Exclamation, MessageButtons::Ok});
}

void MonitoringController::StartMonitoring() {
    if (m_parts.list.Rows() == 0)
        return refuseStart(215);
    m_parts.list.ReadmitAll();
    if (!anyRowChecked())
        return refuseStart(217);
    LockRefusal refusal{};
    m_lock = m_parts.engineLock.Take(m_parts.file.CurrentPath(), refusal);
    if (!m_lock) {
        refuseStart(refusal == LockRefusal::HeldElsewhere ? 437 : 585);
        Q_EMIT LockRefused();
        return;
    }
    m_parts.dueMarks.ClearDueMarks();
    m_parts.dueMarks.ScheduleCheckedActivities();

    QStringList names;
    for (int row = 0; row < m_parts.list.Rows(); ++row) {
        if (!m_parts.list.IsChecked(row))
            continue;
        names.append(m_parts.list.NameAt(row));
        m_parts.list.SetText(names.last(), ActivityList::Count, QStringLiteral("0"));
    }
    m_parts.logs.WriteAppLog(m_parts.texts.Text(218) + names.join(QStringLiteral("; ")) + u"'");

    m_parts.timers.tmrMonitoring.SetEnabled(true);
    m_parts.timers.tmrHours.SetEnabled(true);
    m_parts.timers.tmrMinutes.SetEnabled(true);
    m_parts.dueMarks.ResetCounters();
    m_parts.timers.tmrDate.SetEnabled(true);
    m_parts.timers.tmrTime.SetEnabled(true);
    CheckAllIdle();
    writeSessionLine(220, true);
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
    m_parts.logs.WriteAppLog(m_parts.texts.Text(221) + u"\r\n\r\n");
    writeSessionLine(221, false);
    for (int row = 0; row < m_parts.list.Rows(); ++row)
        m_parts.list.SetText(m_parts.list.NameAt(row), ActivityList::Status, m_parts.texts.Text(198));
    m_lock.reset();
    m_savedLock.reset();
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
void MonitoringController::lockSavedFile() {
    LockRefusal ignored{};
    if (!m_on)
        return;
    if (EngineLock::Token lock = m_parts.engineLock.Take(m_parts.file.CurrentPath(), ignored))
        m_savedLock = std::move(lock);
}

void MonitoringController::writeSessionLine(int textId, bool blankLineFirst) {
    for (int row = 0; row < m_parts.list.Rows(); ++row)
        m_parts.logs.WriteActivityLog(m_parts.list.NameAt(row), m_parts.texts.Text(textId), blankLineFirst);
}

void MonitoringController::CheckAllIdle() {
    if (m_parts.list.ListBusy())
        return;
    bool anyChecked = false;
    for (int row = 0; row < m_parts.list.Rows(); ++row) {
        const bool checked = m_parts.list.IsChecked(row);
        anyChecked = anyChecked || checked;
        m_parts.list.SetText(m_parts.list.NameAt(row), ActivityList::Status,
                             m_parts.texts.Text(checked && m_on ? 222 : 198));
    }
    // While a run is on the stack its activity may be the one that was just taken out: it must end first.
    if (!anyChecked && m_on && !m_parts.runState.Running())
        endByItself();
}

void MonitoringController::endByItself() {
    StopMonitoring();
    if (m_parts.options.ShutdownWhenIdle()) {
        const QString& last = m_parts.runState.lastProcessed;
        const QString name = last.isEmpty() ? m_parts.list.NameAt(0) : last;
        const auto tell = [&](const QString& line) {
            m_parts.logs.SetActivityStatus(name, line);
            m_parts.logs.WriteAppLog(line);
        };
        tell(m_parts.texts.Text(223) + name + m_parts.texts.Text(224));
        if (!m_parts.power.PowerOff())
            tell(m_parts.texts.Text(584));
    }
    m_parts.prompter.Ask(
        {m_parts.texts.Text(225), m_parts.texts.Text(221), MessageIcon::Information, MessageButtons::Ok});
}

// Switches monitoring on and off and keeps that state visible in the list and the logs. Owns the state and the lock on
// the activity file while monitoring is on. It never throws; a refused start shows a message and leaves monitoring off.
#pragma once

#include "EngineLock.h"
#include "EngineServices.h"
#include <QObject>
#include <QString>
#include <optional>

class ActivityLogs;
class DueMarks;
class PlannedRuns;
struct MonitoringTimers;
enum class Text;

class MonitoringController final : public QObject, public MonitoringSwitch {
    Q_OBJECT
  public:
    MonitoringController(const EngineServices& services, ActivityLogs& logs, DueMarks& dueMarks, PlannedRuns& plans,
                         MonitoringTimers& timers);
    ~MonitoringController() override;

    /// The start and stop command. Sets the mark before StartMonitoring, which clears it when its checks fail.
    void ToggleMonitoring();
    void StartMonitoring();
    void ActivityDone() override;
    void StopMonitoring() override;
    void CheckAllIdle() override;

    /// Saves the activities to another file, which is current from then on. The reason when the lock on that file is
    /// refused; StoreError when it cannot be saved. Either leaves everything as it was.
    [[nodiscard]] std::optional<LockRefusal> MoveTo(const QString& path);

    /// The one flag that says monitoring is on.
    [[nodiscard]] bool IsOn() const override { return m_on; }

  Q_SIGNALS:
    /// The mark changed: menus, toolbar, tray and status bar show it.
    void StateChanged(bool on);
    /// A start was refused because the lock on the activity file was; a message has been shown.
    void LockRefused();

  private:
    [[nodiscard]] bool anyRowChecked() const;
    void refuseStart(Text text);
    void writeSessionLine(Text text, bool blankLineFirst);
    void endByItself();
    void tellEnd(bool wantsPowerOff, const QString& last);
    [[nodiscard]] Text powerOff();
    void readmitted(const QString& name);
    void refilled();
    void setOn(bool on);
    void lockPresentFile();

    const EngineServices& m_services;
    ActivityLogs& m_logs;
    DueMarks& m_dueMarks;
    PlannedRuns& m_plans;
    MonitoringTimers& m_timers;
    EngineLock::Token m_lock;        ///< on the file as monitoring found it
    EngineLock::Token m_presentLock; ///< on the file that the last save or load has made of it
    bool m_on = false;
    bool m_doneByRun = false; ///< the last box was cleared by the end of a run of this session
};

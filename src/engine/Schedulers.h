// The schedulers, two for each kind of interval and two for moments: each tick walks the list and runs what is due. No
// exception leaves a tick; an activity that fails does not keep the others from running.
#pragma once

#include "DueFacts.h"
#include "DueMarks.h"
#include "EngineServices.h"
#include "PlannedRuns.h"
#include "RunFacts.h"
#include <QObject>
#include <array>
#include <chrono>
#include <functional>
#include <optional>

class ActivityLogs;
class ChangeDetection;
class ChangeWatch;
class NextRuns;
struct MonitoringTimers;

class Schedulers final : public QObject {
    Q_OBJECT
  public:
    Schedulers(const EngineServices& services, ActivityLogs& logs, ChangeDetection& changes, ChangeWatch& watch,
               DueMarks& dueMarks, DueFacts& facts, PlannedRuns& plans, const NextRuns& nextRuns,
               MonitoringSwitch& monitoring)
        : m_services(services), m_logs(logs), m_changes(changes), m_watch(watch), m_dueMarks(dueMarks), m_facts(facts),
          m_plans(plans), m_nextRuns(nextRuns), m_monitoring(monitoring) {}

    /// Each timer's event runs its scheduler.
    void ConnectTo(MonitoringTimers& timers);

    /// Until then every tick does nothing.
    void Allow() { m_allowed = true; }

  private:
    /// A second of local time, as the records name days and minutes.
    struct Moment {
        std::optional<std::chrono::sys_seconds> second;
        QString time; ///< "HH:mm"
        QDate date;
    };
    [[nodiscard]] const Moment& present();
    void guarded(const std::function<void()>& tick);
    void countTheOtherWay();
    void onSecond();
    void onMinute();
    void onEven(IntervalKind kind);
    [[nodiscard]] bool mayGoOn() const;
    void onChange();
    [[nodiscard]] bool mayRunNow(int row);
    void runChanged(int row);
    [[nodiscard]] RunOutcome run(const QString& name);
    [[nodiscard]] RunOutcome runDue(const QString& name);
    [[nodiscard]] RunOutcome runInterval(const QString& name);
    void runPlanned(const QString& name, PlannedRuns::Due due, const std::function<RunOutcome()>& run);
    [[nodiscard]] RunOutcome runOnTime(const QString& name);
    [[nodiscard]] PlannedRuns::Due dueNow(int row, const DueFacts::Row& facts);
    [[nodiscard]] QString appointment(const QString& name) const;
    void repairMark(int row, std::int32_t mark);
    void tickOfInterval(IntervalKind kind);
    void tickOfMoments(char16_t type);
    [[nodiscard]] std::optional<DueFacts::Row> activeOf(int row, char16_t type);
    void finishForGood(const QString& name, bool hasRun);

    const EngineServices& m_services;
    ActivityLogs& m_logs;
    ChangeDetection& m_changes;
    ChangeWatch& m_watch;
    DueMarks& m_dueMarks;
    DueFacts& m_facts;
    PlannedRuns& m_plans;
    const NextRuns& m_nextRuns;
    MonitoringSwitch& m_monitoring;
    MonitoringTimers* m_timers = nullptr;
    Moment m_present;
    std::array<bool, 3> m_isWalking{}; ///< of each kind: a second walk would run an activity inside itself
    bool m_allowed = false;
};

// The five schedulers: each tick walks the list and runs what is due. No exception leaves a tick; an activity that
// fails does not keep the others from running.
#pragma once

#include "DueFacts.h"
#include "DueMarks.h"
#include "EngineServices.h"
#include "RunFacts.h"
#include <QObject>
#include <chrono>
#include <optional>

class ActivityLogs;
class ChangeDetection;
class ChangeWatch;
struct MonitoringTimers;

class Schedulers final : public QObject {
    Q_OBJECT
  public:
    /// `locale`: in whose order dates with "/" are read.
    Schedulers(const EngineServices& services, ActivityLogs& logs, ChangeDetection& changes, ChangeWatch& watch,
               DueMarks& dueMarks, MonitoringSwitch& monitoring, const QLocale& locale)
        : m_services(services), m_logs(logs), m_changes(changes), m_watch(watch), m_dueMarks(dueMarks),
          m_monitoring(monitoring), m_facts(services.file, services.list, dueMarks, locale) {}

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
    void guarded(void (Schedulers::*tick)());
    void onSecond();
    void onMinute();
    void onHour();
    void onTimeOfDay();
    void onDate();
    void onChange();
    [[nodiscard]] bool mayGoOn() const;
    void runDue(const QString& name);
    void runInterval(const QString& name);
    [[nodiscard]] bool mayRunNow(int row);
    void runChanged(int row);
    [[nodiscard]] RunOutcome run(const QString& name);
    void runOnTime(const QString& name, bool isLast);
    [[nodiscard]] QString appointment(const QString& name) const;
    void repairMark(int row, std::int32_t mark);
    void tickOfInterval(char16_t type, std::int32_t counter, bool dueFromMarkOn);
    [[nodiscard]] std::optional<DueFacts::Row> activeOf(int row, char16_t type);
    void finishForGood(const QString& name, bool hasRun);

    const EngineServices& m_services;
    ActivityLogs& m_logs;
    ChangeDetection& m_changes;
    ChangeWatch& m_watch;
    DueMarks& m_dueMarks;
    MonitoringSwitch& m_monitoring;
    DueFacts m_facts;
    Moment m_present;
    bool m_allowed = false;
    bool m_anyWatched = false; ///< an activity is to run when something changes
};

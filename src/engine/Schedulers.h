// The five schedulers: each tick walks the list and runs what is due. No exception leaves a tick; an activity that
// fails does not keep the others from running.
#pragma once

#include "DueMarks.h"
#include "EngineServices.h"
#include <QLocale>
#include <QObject>

class ActivityLogs;
class ChangeDetection;
struct MonitoringTimers;

class Schedulers final : public QObject {
    Q_OBJECT
  public:
    /// `locale`: in whose order dates with "/" are read.
    Schedulers(const EngineServices& services, ActivityLogs& logs, ChangeDetection& changes, DueMarks& dueMarks,
               MonitoringSwitch& monitoring, const QLocale& locale)
        : m_services(services), m_logs(logs), m_changes(changes), m_dueMarks(dueMarks), m_monitoring(monitoring),
          m_locale(locale) {}

    /// Each timer's event runs its scheduler.
    void ConnectTo(MonitoringTimers& timers);

    /// Until then every tick does nothing.
    void Allow() { m_allowed = true; }

  private:
    void guarded(void (Schedulers::*tick)());
    void onSecond();
    void onMinute();
    void onHour();
    void onTimeOfDay();
    void onDate();
    [[nodiscard]] bool mayGoOn() const;
    void runDue(const QString& name);
    void runOnTime(const QString& name, bool isLast);
    [[nodiscard]] QString appointment(const QString& name) const;
    void repairMark(const QString& name, std::int32_t mark);
    void tickOfInterval(const QString& type, std::int32_t counter, bool dueFromMarkOn);
    [[nodiscard]] bool isActive(int row, const QString& type) const;
    void finishForGood(const QString& name, bool hasRun);

    const EngineServices& m_services;
    ActivityLogs& m_logs;
    ChangeDetection& m_changes;
    DueMarks& m_dueMarks;
    MonitoringSwitch& m_monitoring;
    QLocale m_locale;
    bool m_allowed = false;
};

// The five schedulers: each tick walks the list and runs what is due. Owns nothing but its permission to tick. No
// exception leaves a tick; one activity's trouble never keeps the others from their turn.
#pragma once

#include "DueMarks.h"
#include <QLocale>
#include <QObject>

class ActivityLogs;
class ChangeDetection;
class Clock;
class MonitoringSwitch;
class StringTable;
struct MonitoringTimers;
class RunState;

class Schedulers final : public QObject {
    Q_OBJECT
  public:
    struct Parts {
        ActivityFile& file;
        ActivityList& list;
        ActivityLogs& logs;
        ChangeDetection& changes;
        DueMarks& dueMarks;
        MonitoringSwitch& monitoring;
        const Clock& clock;
        const StringTable& texts;
        RunState& runState;
        QLocale locale; ///< in whose order dates with "/" are read
    };
    explicit Schedulers(const Parts& parts) : m_parts(parts) {}

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

    Parts m_parts;
    bool m_allowed = false;
};

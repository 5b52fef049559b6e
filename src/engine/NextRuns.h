// When each activity runs next, or why it does not: what the schedulers go by, looked at from outside. Owns nothing.
// Costs nothing until it is asked.
#pragma once

#include "EngineServices.h"
#include "Moments.h"

class ChangeWatch;
class DueFacts;
class DueMarks;
class PlannedRuns;
struct MonitoringTimers;

/// Why an activity does not run.
enum class NeverRuns {
    MonitoringIsOff,
    IsNotTicked,
    IsTakenOut, ///< by the engine: it has had its one run, or a directory is missing
    HasNoSchedule,
    HasNoNumber, ///< for an interval
    HasNoTime,   ///< none of the form "HH:mm"
    HasNoDate,
    IsPast,
    Stalls ///< its interval does not fit the counters
};

struct NextRun {
    std::optional<Moments::Second> at = {};
    NeverRuns reason = NeverRuns::MonitoringIsOff; ///< without `at`
    QString held = {};                             ///< why its run would be held if nothing changes
    bool isWatched = false;                        ///< runs also when something changes
    QString notWatched = {};                       ///< why it does not do so all the same
};

class NextRuns final {
  public:
    NextRuns(const EngineServices& services, const DueMarks& marks, DueFacts& facts, const PlannedRuns& plans,
             const ChangeWatch& watch, const MonitoringSwitch& monitoring, const MonitoringTimers& timers)
        : m_services(services), m_marks(marks), m_facts(facts), m_plans(plans), m_watch(watch),
          m_monitoring(monitoring), m_timers(timers) {}

    /// Of a row of the list.
    [[nodiscard]] NextRun Of(int row) const;

    /// How long until the counters make the row due; nothing: never.
    [[nodiscard]] std::optional<std::chrono::seconds> UntilCounted(int row) const;

  private:
    [[nodiscard]] NextRun ofInterval(int row) const;
    [[nodiscard]] NextRun ofMoment(int row) const;
    [[nodiscard]] Moments::Second present() const;

    const EngineServices& m_services;
    const DueMarks& m_marks;
    DueFacts& m_facts;
    const PlannedRuns& m_plans;
    const ChangeWatch& m_watch;
    const MonitoringSwitch& m_monitoring;
    const MonitoringTimers& m_timers;
};

#include "MonitoringTimers.h"

namespace {
void setUp(TimerEx& timer, std::int32_t interval, std::int32_t unit) {
    timer.SetInterval(interval);
    timer.SetIntervalUnit(unit);
}
} // namespace

MonitoringTimers::MonitoringTimers(const Clock& clock)
    : tmrMonitoring(clock), tmrMinutes(clock), tmrHours(clock), tmrTime(clock), tmrDate(clock), tmrStatusbar(clock),
      TimerEx1(clock) {
    setUp(tmrMonitoring, 1, 0);
    setUp(tmrMinutes, 1, 1);
    setUp(tmrHours, 1, 2);
    setUp(tmrTime, 1, 0);
    setUp(tmrDate, 1, 0);
    setUp(tmrStatusbar, 3, 0);
    setUp(TimerEx1, 2, 0);
    tmrStatusbar.SetEnabled(true);
}

// The seven timers of monitoring with their fixed settings. Owns them; cannot fail.
#pragma once

#include "TimerEx.h"

struct MonitoringTimers {
    explicit MonitoringTimers(const Clock& clock);

    TimerEx tmrMonitoring; ///< seconds scheduler, every second
    TimerEx tmrMinutes;    ///< minutes scheduler, every minute
    TimerEx tmrHours;      ///< hours scheduler, every hour
    TimerEx tmrTime;       ///< time of day, every second
    TimerEx tmrDate;       ///< date and time, every second
    TimerEx tmrStatusbar;  ///< status bar, every 3 s, always on
    TimerEx TimerEx1;      ///< diagnostic countdown, every 2 s when enabled
};

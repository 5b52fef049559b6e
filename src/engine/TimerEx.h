// A timer for periods of seconds, minutes, hours or days. Owns a polling timer and the moment of the last firing. Wrong
// values are refused with EngineError 380 and change nothing.
#pragma once

#include <QObject>
#include <QTimer>
#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <stdexcept>

class Clock;

/// The one exception of this floor, with the error number callers know: 380 invalid value, 6 overflow.
class EngineError final : public std::runtime_error {
  public:
    EngineError(int number, const char* what) : std::runtime_error(what), m_number(number) {}
    [[nodiscard]] int Number() const { return m_number; }

  private:
    int m_number;
};

class TimerEx final : public QObject {
    Q_OBJECT
  public:
    explicit TimerEx(const Clock& clock);

    [[nodiscard]] bool Enabled() const { return m_enabled; }
    void SetEnabled(bool enabled);
    /// Length of the period in units; 0 = stopped. Negative: EngineError 380.
    [[nodiscard]] std::int32_t Interval() const { return m_interval; }
    void SetInterval(std::int32_t interval);
    /// 0 seconds, 1 minutes, 2 hours, 3 days; anything else: EngineError 380.
    [[nodiscard]] std::int32_t IntervalUnit() const { return m_unit; }
    void SetIntervalUnit(std::int32_t unit);

    /// When it fires next, unless the clock is set; nothing while it is stopped.
    [[nodiscard]] std::optional<std::chrono::system_clock::time_point> NextFiring() const;

    /// One tick of the inner timer: fires when the whole seconds since the last firing reach the period. Never enters
    /// a handler that is still running. Throws EngineError 6 when the period does not fit in 32 bits of seconds.
    void Poll();

  Q_SIGNALS:
    void Timer();

  private:
    void restart();
    void onInnerTick();

    const Clock& m_clock;
    QTimer m_tmr;
    std::chrono::system_clock::time_point m_lastFiring;
    std::int32_t m_interval = 0;
    std::int32_t m_unit = 0;
    bool m_enabled = false;
    bool m_firing = false;
};

/// The timers of monitoring with their fixed settings.
struct MonitoringTimers {
    explicit MonitoringTimers(const Clock& clock);

    /// Those that run activities whose intervals are counted by the clock.
    [[nodiscard]] std::array<TimerEx*, 3> Even() { return {&tmrEvenSeconds, &tmrEvenMinutes, &tmrEvenHours}; }

    TimerEx tmrMonitoring;  ///< seconds scheduler, every second
    TimerEx tmrMinutes;     ///< minutes scheduler, every minute
    TimerEx tmrHours;       ///< hours scheduler, every hour
    TimerEx tmrEvenSeconds; ///< seconds that are counted by the clock, every second
    TimerEx tmrEvenMinutes; ///< minutes
    TimerEx tmrEvenHours;   ///< hours
    TimerEx tmrTime;        ///< time of day, every second
    TimerEx tmrDate;        ///< date and time, every second
    TimerEx tmrChanges;     ///< changes in watched directories, every second
    TimerEx tmrStatusbar;   ///< status bar, every 3 s, always on
    TimerEx TimerEx1;       ///< diagnostic countdown, every 2 s when enabled
};

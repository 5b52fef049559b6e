// A timer for periods of seconds, minutes, hours or days. Owns a polling timer and the moment of the last firing. Wrong
// values are refused with EngineError 380 and change nothing.
#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>
#include <cstdint>

class Clock;

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

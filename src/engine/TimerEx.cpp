#include "TimerEx.h"
#include "Clock.h"

#include <QScopedValueRollback>

#include <array>
#include <cstdlib>
#include <limits>

namespace {
struct Unit {
    std::int64_t seconds;
    std::chrono::milliseconds poll;
};
constexpr std::array<Unit, 4> units{{{1, std::chrono::milliseconds(100)},
                                     {60, std::chrono::milliseconds(1000)},
                                     {3600, std::chrono::milliseconds(30000)},
                                     {86400, std::chrono::milliseconds(60000)}}};

std::int64_t wholeSeconds(std::chrono::system_clock::time_point time) {
    return std::chrono::floor<std::chrono::seconds>(time.time_since_epoch()).count();
}

void setUp(TimerEx& timer, std::int32_t interval, std::int32_t unit) {
    timer.SetInterval(interval);
    timer.SetIntervalUnit(unit);
}
} // namespace

TimerEx::TimerEx(const Clock& clock) : m_clock(clock), m_lastFiring(clock.Now()) {
    connect(&m_tmr, &QTimer::timeout, this, &TimerEx::onInnerTick);
}

void TimerEx::SetEnabled(bool enabled) {
    m_enabled = enabled;
    if (!enabled)
        m_tmr.stop();
    restart();
}

void TimerEx::SetInterval(std::int32_t interval) {
    if (interval < 0)
        throw EngineError(380, "invalid property value");
    m_interval = interval;
    if (interval == 0)
        m_tmr.stop();
    restart();
}

void TimerEx::SetIntervalUnit(std::int32_t unit) {
    if (unit < 0 || unit >= static_cast<std::int32_t>(units.size()))
        throw EngineError(380, "invalid property value");
    m_unit = unit;
    restart();
}

void TimerEx::restart() {
    if (!m_enabled || m_interval == 0)
        return;
    m_tmr.start(units[static_cast<std::size_t>(m_unit)].poll);
    m_lastFiring = m_clock.Now();
}

std::optional<std::chrono::system_clock::time_point> TimerEx::NextFiring() const {
    if (!m_enabled || m_interval == 0)
        return std::nullopt;
    return std::chrono::floor<std::chrono::seconds>(m_lastFiring) +
           std::chrono::seconds(m_interval * units[static_cast<std::size_t>(m_unit)].seconds);
}

void TimerEx::Poll() {
    if (!m_enabled || m_interval == 0 || m_firing)
        return;
    const std::int64_t period = m_interval * units[static_cast<std::size_t>(m_unit)].seconds;
    if (period > std::numeric_limits<std::int32_t>::max())
        throw EngineError(6, "overflow");
    // A clock that was set back counts as elapsed time: better one tick too early than none for a year.
    if (std::abs(wholeSeconds(m_clock.Now()) - wholeSeconds(m_lastFiring)) < period)
        return;
    {
        const QScopedValueRollback firing(m_firing, true);
        Q_EMIT Timer();
    }
    m_lastFiring = m_clock.Now();
}

void TimerEx::onInnerTick() {
    try {
        Poll();
    } catch (const EngineError&) {
        // The period can never elapse; an exception must not pass through the event loop.
        m_tmr.stop();
    }
}

MonitoringTimers::MonitoringTimers(const Clock& clock)
    : tmrMonitoring(clock), tmrMinutes(clock), tmrHours(clock), tmrEvenSeconds(clock), tmrEvenMinutes(clock),
      tmrEvenHours(clock), tmrTime(clock), tmrDate(clock), tmrChanges(clock), tmrStatusbar(clock), TimerEx1(clock) {
    setUp(tmrMonitoring, 1, 0);
    setUp(tmrMinutes, 1, 1);
    setUp(tmrHours, 1, 2);
    for (TimerEx* timer : Even())
        setUp(*timer, 1, 0);
    setUp(tmrTime, 1, 0);
    setUp(tmrDate, 1, 0);
    setUp(tmrChanges, 1, 0);
    setUp(tmrStatusbar, 3, 0);
    setUp(TimerEx1, 2, 0);
    tmrStatusbar.SetEnabled(true);
}

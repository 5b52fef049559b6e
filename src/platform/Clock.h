// What time it is: the wall clock for schedules and log lines, the monotonic clock for measuring. Never fails.
#pragma once

#include <chrono>

class Clock {
  public:
    virtual ~Clock() = default;

    /// The wall clock (UTC); it can be set back at any time.
    [[nodiscard]] virtual std::chrono::system_clock::time_point Now() const = 0;

    /// A clock that only goes forward, for measuring spans.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point MonotonicNow() const = 0;
};

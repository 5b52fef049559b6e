// The current time: the wall clock for schedules and log lines, the monotonic clock for spans, the elapsed time for
// intervals. Never fails.
#pragma once

#include <chrono>

class Clock {
  public:
    virtual ~Clock() = default;

    /// The wall clock (UTC); it can be set back at any time.
    [[nodiscard]] virtual std::chrono::system_clock::time_point Now() const = 0;

    /// A clock that only goes forward, for measuring spans.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point MonotonicNow() const = 0;

    /// The same, but it goes on while the machine sleeps. Where the monotonic clock does that, too, it is that one.
    [[nodiscard]] virtual std::chrono::steady_clock::time_point ElapsedNow() const { return MonotonicNow(); }
};

class RealClock : public Clock {
  public:
    [[nodiscard]] std::chrono::system_clock::time_point Now() const override {
        return std::chrono::system_clock::now();
    }
    [[nodiscard]] std::chrono::steady_clock::time_point MonotonicNow() const override {
        return std::chrono::steady_clock::now();
    }
};

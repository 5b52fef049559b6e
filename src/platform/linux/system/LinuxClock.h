// The system's clocks: CLOCK_REALTIME and CLOCK_MONOTONIC. Owns nothing, never fails.
#pragma once

#include "Clock.h"

class LinuxClock final : public Clock {
  public:
    [[nodiscard]] std::chrono::system_clock::time_point Now() const override;
    [[nodiscard]] std::chrono::steady_clock::time_point MonotonicNow() const override;
};

#include "LinuxClock.h"

std::chrono::system_clock::time_point LinuxClock::Now() const {
    return std::chrono::system_clock::now();
}

std::chrono::steady_clock::time_point LinuxClock::MonotonicNow() const {
    return std::chrono::steady_clock::now();
}

#include "LinuxServices.h"

#include "Clock.h"

namespace {

class LinuxClock final : public RealClock {
  public:
    [[nodiscard]] std::chrono::steady_clock::time_point ElapsedNow() const override {
        timespec now{};
        if (::clock_gettime(CLOCK_BOOTTIME, &now) != 0)
            return MonotonicNow();
        return std::chrono::steady_clock::time_point(std::chrono::seconds(now.tv_sec) +
                                                     std::chrono::nanoseconds(now.tv_nsec));
    }
};

} // namespace

std::unique_ptr<Clock> MakeLinuxClock() {
    return std::make_unique<LinuxClock>();
}

#include "modDateCompare.h"

#include <algorithm>
#include <array>

namespace {
// The steps in which file systems store times, coarsest first.
constexpr std::array<std::int64_t, 5> steps{1'000'000'000, 10'000'000, 1'000'000, 1'000, 100};

std::int64_t precision(const FileTime& time) {
    for (const std::int64_t step : steps)
        if (time.nanoseconds % step == 0)
            return std::max(step, time.granularity);
    return std::max<std::int64_t>(1, time.granularity);
}

std::int64_t cut(std::int64_t value, std::int64_t step) {
    const std::int64_t rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}
} // namespace

int modDateCompare::Compare(const FileTime& a, const FileTime& b) {
    const std::int64_t step = std::max(precision(a), precision(b));
    const std::int64_t left = cut(a.nanoseconds, step);
    const std::int64_t right = cut(b.nanoseconds, step);
    return left < right ? -1 : left > right ? 1 : 0;
}

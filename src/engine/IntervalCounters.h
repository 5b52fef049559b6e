// The counting of intervals by ticks: how the counters move, which marks are due, and where that leads. Pure functions
// for the schedulers and for whoever foretells them; the three kinds wrap differently.
#pragma once

#include <QChar>
#include <cstdint>
#include <optional>

enum class IntervalKind { Seconds, Minutes, Hours };

namespace IntervalCounters {

/// Of a schedule's type; nothing for one that is no interval.
[[nodiscard]] std::optional<IntervalKind> KindOf(QChar type);

/// To be called before the walk of a tick, and after it.
void BeginTick(IntervalKind kind, std::int32_t& counter);
void EndTick(IntervalKind kind, std::int32_t& counter);

[[nodiscard]] bool IsDue(IntervalKind kind, std::int32_t counter, std::int32_t mark);

/// A mark that is not due becomes the raw interval then.
[[nodiscard]] bool IsBeyond(std::int32_t mark);

/// The next mark. Sets a counter beyond its round to 0. Nothing when the mark does not fit in 32 bits.
[[nodiscard]] std::optional<std::int32_t> NextMark(IntervalKind kind, std::int32_t& counter, std::int32_t interval);

/// At which tick from now a row with this mark runs; 1 is the next one. Nothing: never. A run of another activity in
/// minute 60 puts this off by a minute.
[[nodiscard]] std::optional<int> TicksToRun(IntervalKind kind, std::int32_t counter, std::int32_t mark,
                                            std::optional<std::int32_t> interval);

/// What becomes of an interval after the start, in ticks.
struct Course {
    int first = 0; ///< tick of the first run; 0: it never runs
    int shortest = 0;
    int longest = 0;         ///< of the pauses after that; 0: there is one run only
    std::optional<int> runs; ///< after which it stops for good
};
[[nodiscard]] Course CourseOf(IntervalKind kind, std::int32_t interval);

} // namespace IntervalCounters

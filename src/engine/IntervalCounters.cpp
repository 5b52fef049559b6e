#include "IntervalCounters.h"

#include <algorithm>
#include <limits>
#include <set>

namespace {
/// More than two rounds of any counter: a mark that was not met by then never is.
constexpr int mostTicks = 130;
} // namespace

std::optional<IntervalKind> IntervalCounters::KindOf(QChar type) {
    if (type < u'0' || type > u'2')
        return std::nullopt;
    return static_cast<IntervalKind>(type.unicode() - u'0');
}

void IntervalCounters::BeginTick(IntervalKind kind, std::int32_t& counter) {
    switch (kind) {
    case IntervalKind::Seconds:
        if (counter >= 59)
            counter = 0;
        break;
    case IntervalKind::Minutes:
        counter = counter < 60 ? counter + 1 : 0;
        break;
    case IntervalKind::Hours:
        counter = counter <= 23 ? counter + 1 : 0;
        break;
    }
}

void IntervalCounters::EndTick(IntervalKind kind, std::int32_t& counter) {
    if (kind == IntervalKind::Seconds)
        ++counter;
}

bool IntervalCounters::IsDue(IntervalKind kind, std::int32_t counter, std::int32_t mark) {
    return counter == mark || (kind == IntervalKind::Hours && counter > mark);
}

bool IntervalCounters::IsBeyond(std::int32_t mark) {
    return mark >= 60;
}

std::optional<std::int32_t> IntervalCounters::NextMark(IntervalKind kind, std::int32_t& counter,
                                                       std::int32_t interval) {
    if (counter > (kind == IntervalKind::Hours ? 24 : 59))
        counter = 0;
    std::int64_t mark = std::int64_t{counter} + interval;
    if (kind != IntervalKind::Hours && mark > 59)
        mark -= 60;
    if (mark > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return static_cast<std::int32_t>(mark);
}

std::optional<int> IntervalCounters::TicksToRun(IntervalKind kind, std::int32_t counter, std::int32_t mark,
                                                std::optional<std::int32_t> interval) {
    for (int tick = 1; tick <= mostTicks; ++tick) {
        BeginTick(kind, counter);
        if (IsDue(kind, counter, mark))
            return tick;
        if (IsBeyond(mark) && interval)
            mark = *interval;
        EndTick(kind, counter);
    }
    return std::nullopt;
}

IntervalCounters::Course IntervalCounters::CourseOf(IntervalKind kind, std::int32_t interval) {
    Course course;
    std::int32_t counter = 0;
    std::optional<std::int32_t> mark = NextMark(kind, counter, interval);
    int runs = 0;
    int pause = 0; // ticks since the last run
    for (std::set<std::int32_t> met; mark && pause < mostTicks;) {
        ++pause;
        BeginTick(kind, counter);
        if (IsDue(kind, counter, *mark)) {
            const bool isNew = met.insert(counter).second;
            if (runs++ == 0) {
                course.first = pause;
            } else {
                course.shortest = course.longest == 0 ? pause : std::min(course.shortest, pause);
                course.longest = std::max(course.longest, pause);
            }
            if (!isNew) // from here on everything repeats
                return course;
            pause = 0;
            mark = NextMark(kind, counter, interval);
        } else if (IsBeyond(*mark)) {
            mark = interval;
        }
        EndTick(kind, counter);
    }
    course.runs = runs;
    return course;
}

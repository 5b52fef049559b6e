#include "EvenGrid.h"
#include "Clock.h"
#include "IntervalCounters.h"

#include <algorithm>

namespace {
/// The last point of the grid that has passed.
EvenGrid::Moment lastPoint(const EvenGrid::Next& next, EvenGrid::Moment now) {
    return next.due + (now - next.due) / next.interval * next.interval;
}
} // namespace

std::optional<std::chrono::seconds> EvenGrid::LengthOf(QChar type, std::optional<std::int32_t> interval) {
    const std::optional<IntervalKind> kind = IntervalCounters::KindOf(type);
    if (!kind || !interval || *interval < 1)
        return std::nullopt;
    const int unit = *kind == IntervalKind::Seconds ? 1 : *kind == IntervalKind::Minutes ? 60 : 3600;
    return std::chrono::seconds(std::int64_t{*interval} * unit);
}

std::chrono::nanoseconds EvenGrid::sleptUntilNow() const {
    return m_clock.ElapsedNow() - m_clock.MonotonicNow();
}

void EvenGrid::Clear() {
    m_next.clear();
    m_slept = sleptUntilNow();
}

void EvenGrid::Begin(const QString& name, std::chrono::seconds interval, std::chrono::seconds first) {
    m_next[name] = {.interval = interval, .due = m_clock.ElapsedNow() + std::min(first, interval)};
}

void EvenGrid::Resume(const QString& name, std::chrono::seconds interval, Moment due) {
    m_next[name] = {.interval = interval, .due = due, .isMissed = due <= m_clock.ElapsedNow()};
}

EvenGrid::Next EvenGrid::Of(const QString& name, std::chrono::seconds interval) {
    const auto known = m_next.constFind(name);
    if (known == m_next.constEnd() || known->interval != interval)
        Begin(name, interval, interval);
    return m_next[name];
}

std::optional<EvenGrid::Next> EvenGrid::Known(const QString& name) const {
    const auto known = m_next.constFind(name);
    return known == m_next.constEnd() ? std::nullopt : std::optional<Next>(*known);
}

void EvenGrid::Ran(const QString& name, Moment begin, bool late) {
    const auto next = m_next.find(name);
    if (next == m_next.end() || next->due > begin) // planned anew meanwhile
        return;
    const Moment last = lastPoint(*next, m_clock.ElapsedNow());
    next->isMissed = late && last > begin;
    next->due = next->isMissed ? last : last + next->interval;
}

void EvenGrid::LookForSleep(bool late) {
    const std::chrono::nanoseconds slept = sleptUntilNow();
    if (slept - m_slept < std::chrono::seconds(1)) // the two readings are never quite the same moment
        return;
    m_slept = slept;
    const Moment now = m_clock.ElapsedNow();
    for (Next& next : m_next) {
        if (next.due > now)
            continue;
        next.isMissed = late;
        if (!late)
            next.due = lastPoint(next, now) + next.interval;
    }
}

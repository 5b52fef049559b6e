#include "NextRuns.h"
#include "ActivityList.h"
#include "ChangeWatch.h"
#include "Clock.h"
#include "DueFacts.h"
#include "DueMarks.h"
#include "PlannedRuns.h"
#include "RunState.h"
#include "TimerEx.h"

#include <algorithm>

using std::chrono::seconds;

namespace {

const TimerEx& timerOf(IntervalKind kind, const MonitoringTimers& timers) {
    return kind == IntervalKind::Seconds   ? timers.tmrMonitoring
           : kind == IntervalKind::Minutes ? timers.tmrMinutes
                                           : timers.tmrHours;
}

seconds lengthOf(const TimerEx& timer) {
    return seconds(timer.IntervalUnit() == 0 ? 1 : timer.IntervalUnit() == 1 ? 60 : 3600);
}

/// The next second in which the clocks show this time: its minute may have begun.
std::optional<Moments::Second> nextShown(QDate first, int days, std::chrono::minutes time, Moments::Second now) {
    for (int day = 0; day < days; ++day)
        for (const Moments::Second at : Moments::Shown(first.addDays(day), time))
            if (at + std::chrono::minutes(1) > now + seconds(1))
                return std::max(at, now + seconds(1));
    return std::nullopt;
}

} // namespace

Moments::Second NextRuns::present() const {
    return std::chrono::floor<seconds>(m_services.clock.Now());
}

std::optional<seconds> NextRuns::UntilCounted(int row) const {
    const DueFacts::Row facts = m_facts.Of(row);
    const std::optional<IntervalKind> kind = IntervalCounters::KindOf(facts.type);
    if (!kind || !facts.mark)
        return std::nullopt;
    const TimerEx& timer = timerOf(*kind, m_timers);
    const std::optional<int> ticks =
        IntervalCounters::TicksToRun(*kind, m_marks.CounterOf(*kind), *facts.mark, facts.interval);
    const auto firing = timer.NextFiring();
    if (!ticks || !firing)
        return std::nullopt;
    const seconds untilFiring = std::chrono::floor<seconds>(*firing) - present();
    return std::max(untilFiring, seconds(0)) + lengthOf(timer) * (*ticks - 1);
}

NextRun NextRuns::ofInterval(int row) const {
    const DueFacts::Row facts = m_facts.Of(row);
    if (m_plans.IsEven()) {
        if (!EvenGrid::LengthOf(facts.type, facts.interval))
            return {.reason = NeverRuns::HasNoNumber};
        return {.at = m_plans.Next(m_services.list.NameAt(row)).value_or(present() + seconds(1))};
    }
    if (!facts.interval || !facts.mark)
        return {.reason = NeverRuns::HasNoNumber};
    if (const std::optional<seconds> until = UntilCounted(row))
        return {.at = present() + *until};
    return {.reason = NeverRuns::Stalls};
}

NextRun NextRuns::ofMoment(int row) const {
    const DueFacts::Row facts = m_facts.Of(row);
    const bool isDated = facts.type == u'3';
    const std::optional<std::chrono::minutes> time = Moments::TimeOfDay(facts.time);
    if (!time)
        return {.reason = NeverRuns::HasNoTime};
    if (isDated && !facts.date.isValid())
        return {.reason = NeverRuns::HasNoDate};
    const Moments::Second now = present();
    if (const std::optional<Moments::Second> planned = m_plans.Next(m_services.list.NameAt(row)))
        return {.at = std::max(*planned, now + seconds(1))};
    const QDate first = isDated ? facts.date : Moments::DayOf(now);
    if (const std::optional<Moments::Second> at = nextShown(first, isDated ? 1 : 366, *time, now))
        return {.at = at};
    return {.reason = NeverRuns::IsPast};
}

NextRun NextRuns::Of(int row) const {
    if (!m_monitoring.IsOn())
        return {};
    const QString name = m_services.list.NameAt(row);
    if (m_services.list.IsTakenOut(name))
        return {.reason = NeverRuns::IsTakenOut};
    const DueFacts::Row facts = m_facts.Of(row);
    if (!facts.isActive || !m_services.list.IsChecked(row))
        return {.reason = NeverRuns::IsNotTicked};
    NextRun next;
    if (IntervalCounters::KindOf(facts.type))
        next = ofInterval(row);
    else if (facts.type == u'3' || facts.type == u'4')
        next = ofMoment(row);
    else
        next.reason = NeverRuns::HasNoSchedule;
    next.isWatched = facts.isWatched;
    next.notWatched = m_watch.NotWatched(name);
    next.held = m_services.runState.Held().value(name);
    return next;
}

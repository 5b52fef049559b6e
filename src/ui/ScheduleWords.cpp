#include "ScheduleWords.h"

#include "IntervalCounters.h"
#include "StringTable.h"
#include <QStringList>
#include <array>

namespace {

using Kind = ScheduleFacts::Kind;

struct UnitTexts {
    Text everyOne;
    Text every;
    Text one;
    Text many;
};
constexpr std::array<UnitTexts, 3> units{{{Text::EverySecond, Text::EverySeconds, Text::SpanSecond, Text::SpanSeconds},
                                          {Text::EveryMinute, Text::EveryMinutes, Text::SpanMinute, Text::SpanMinutes},
                                          {Text::EveryHour, Text::EveryHours, Text::SpanHour, Text::SpanHours}}};

IntervalKind countedAs(Kind kind) {
    return kind == Kind::Seconds   ? IntervalKind::Seconds
           : kind == Kind::Minutes ? IntervalKind::Minutes
                                   : IntervalKind::Hours;
}

QString span(const UnitTexts& unit, int number, const StringTable& texts) {
    return number == 1 ? texts[unit.one] : texts[unit.many].arg(number);
}

/// What the counters make of it, where that is something else; "" where it is not.
QString peculiarities(const IntervalCounters::Course& course, int interval, const UnitTexts& unit,
                      const StringTable& texts) {
    QStringList sentences;
    const bool isEven = course.first == interval &&
                        (course.longest == 0 || (course.shortest == interval && course.longest == interval));
    if (!isEven && course.longest > 0) {
        const QString longest = span(unit, course.longest, texts);
        const QString pauses = course.shortest == course.longest
                                   ? longest
                                   : texts[Text::SpanRange].arg(QString::number(course.shortest), longest);
        sentences.append(texts[Text::CountedInRounds].arg(span(unit, course.first, texts), pauses));
    }
    if (course.runs)
        sentences.append(
            (*course.runs == 1 ? texts[Text::StopsAfterRun] : texts[Text::StopsAfterRuns].arg(*course.runs)) + u' ' +
            texts[Text::StallHint]);
    return sentences.join(u' ');
}

QString ofInterval(const ScheduleFacts& facts, const StringTable& texts) {
    const IntervalKind kind = countedAs(facts.kind);
    const UnitTexts& unit = units.at(static_cast<std::size_t>(kind));
    if (facts.interval < 1)
        return texts[Text::NeverNoNumber];
    IntervalCounters::Course course{.first = facts.interval, .shortest = 0, .longest = 0, .runs = {}};
    if (!facts.countsByTheClock)
        course = IntervalCounters::CourseOf(kind, facts.interval);
    if (course.first == 0)
        return texts[Text::WouldNeverRun] + u' ' + texts[Text::StallHint];
    if (facts.isOnceOnly)
        return texts[Text::OnceAfter].arg(span(unit, course.first, texts));
    const QString every = facts.interval == 1 ? texts[unit.everyOne] : texts[unit.every].arg(facts.interval);
    const QString more = peculiarities(course, facts.interval, unit, texts);
    return more.isEmpty() ? every : QString(every + u' ' + more);
}

QString ofDate(const ScheduleFacts& facts, const StringTable& texts) {
    if (!facts.date.isValid())
        return texts[Text::EnterDate];
    if (!facts.time.isValid())
        return texts[Text::EnterTime];
    const QString day = texts[Text::DayWithName].arg(facts.dayName, facts.dateText);
    const QString sentence = texts[Text::OnceOnDay].arg(day, facts.time.toString(QStringLiteral("HH:mm")));
    return facts.isPast ? QString(sentence + u' ' + texts[Text::MomentIsPast]) : sentence;
}

QString ofSchedule(const ScheduleFacts& facts, const StringTable& texts) {
    switch (facts.kind) {
    case Kind::None:
        return texts[Text::ChooseSchedule];
    case Kind::Date:
        return ofDate(facts, texts);
    case Kind::TimeOfDay:
        if (!facts.time.isValid())
            return texts[Text::EnterTime];
        return texts[facts.isDaily ? Text::EveryDayAt : Text::OnceAtTime].arg(
            facts.time.toString(QStringLiteral("HH:mm")));
    case Kind::Seconds:
    case Kind::Minutes:
    case Kind::Hours:
        break;
    }
    return ofInterval(facts, texts);
}

} // namespace

QString ScheduleWords::Of(const ScheduleFacts& facts, const StringTable& texts) {
    const QString schedule = ofSchedule(facts, texts);
    return facts.isWatched ? QString(schedule + u' ' + texts[Text::AlsoOnChange]) : schedule;
}

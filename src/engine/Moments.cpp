#include "Moments.h"
#include "LocalTime.h"

#include <algorithm>

using std::chrono::seconds;

namespace {

/// What the clocks show, as if it were UTC.
Moments::Second shownAt(Moments::Second moment) {
    const std::tm parts = LocalTime::Parts(moment.time_since_epoch().count());
    const std::chrono::sys_days day(std::chrono::year(parts.tm_year + 1900) / (parts.tm_mon + 1) / parts.tm_mday);
    return day + std::chrono::hours(parts.tm_hour) + std::chrono::minutes(parts.tm_min) + seconds(parts.tm_sec);
}

Moments::Second asShown(QDate day, std::chrono::minutes time) {
    const QDate epoch(1970, 1, 1);
    return Moments::Second(std::chrono::days(epoch.daysTo(day))) + time;
}

/// No zone is farther from UTC, and none changes twice within that.
constexpr std::chrono::hours around(24);

} // namespace

std::optional<std::chrono::minutes> Moments::TimeOfDay(const QString& text) {
    const auto digit = [&](int at) { return text[at].unicode() - u'0'; };
    const auto isDigit = [&](int at) { return digit(at) >= 0 && digit(at) <= 9; };
    if (text.size() != 5 || text[2] != u':' || !isDigit(0) || !isDigit(1) || !isDigit(3) || !isDigit(4))
        return std::nullopt;
    const int hour = digit(0) * 10 + digit(1);
    const int minute = digit(3) * 10 + digit(4);
    if (hour > 23 || minute > 59)
        return std::nullopt;
    return std::chrono::minutes(hour * 60 + minute);
}

QDate Moments::DayOf(Second moment) {
    const std::tm parts = LocalTime::Parts(moment.time_since_epoch().count());
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday};
}

seconds Moments::Offset(Second moment) {
    return shownAt(moment) - moment;
}

std::vector<Moments::Second> Moments::Shown(QDate day, std::chrono::minutes time) {
    const Second wanted = asShown(day, time);
    std::vector<Second> found;
    for (const seconds offset : {Offset(wanted - around), Offset(wanted + around)})
        if (shownAt(wanted - offset) == wanted && (found.empty() || found.front() != wanted - offset))
            found.push_back(wanted - offset);
    std::sort(found.begin(), found.end());
    return found;
}

Moments::Second Moments::On(QDate day, std::chrono::minutes time) {
    if (const std::vector<Second> found = Shown(day, time); !found.empty())
        return found.front();
    const Second wanted = asShown(day, time);
    const auto [least, most] = std::minmax({Offset(wanted - around), Offset(wanted + around)});
    Second before = wanted - most;
    Second after = wanted - least;
    while (after - before > seconds(1)) {
        const Second between = before + (after - before) / 2;
        (shownAt(between) < wanted ? before : after) = between;
    }
    return after;
}

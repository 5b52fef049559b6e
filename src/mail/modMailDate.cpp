#include "modMailDate.h"

#include <QStringBuilder>
#include <cstdlib>

namespace {

QByteArray digits(qint64 value, qsizetype width, int base = 10) {
    return QByteArray::number(value, base).toUpper().rightJustified(width, '0');
}

QByteArray entry(const char* names, int number) {
    return QByteArray(names).split(',').at(number);
}

} // namespace

QByteArray modMailDate::DateText(const QDateTime& when) {
    const QDate day = when.date();
    const QTime time = when.time();
    // Qt counts its week from Monday.
    return entry("Sun,Mon,Tue,Wed,Thu,Fri,Sat", day.dayOfWeek() % 7) + ", " + QByteArray::number(day.day()) + ' ' +
           entry(",Jan,Feb,Mar,Apr,May,Jun,Jul,Aug,Sep,Oct,Nov,Dec", day.month()) + ' ' + digits(day.year(), 4) + ' ' +
           digits(time.hour(), 2) + ':' + digits(time.minute(), 2) + ':' + digits(time.second(), 2) + ' ' +
           ZoneText(when.offsetFromUtc());
}

QByteArray modMailDate::ZoneText(int secondsAhead) {
    const int minutesAhead = secondsAhead / 60;
    const int hours = minutesAhead / 60;
    return (hours < 0 ? "-" : "+") + digits(std::abs(hours), 2) + digits(std::abs(minutesAhead) % 60, 2);
}

QByteArray modMailDate::Boundary(const QDateTime& when) {
    const qint64 day = QDate(1899, 12, 30).daysTo(when.date());
    // A day of 86 400 000 ms is cut into 10^8 parts, which is 1000 for every 864 ms.
    const qint64 part = (qint64{when.time().msecsSinceStartOfDay()} * 1000 + 432) / 864;
    return "----_=_NextPart_000_" + digits(day, 8, 16) + '.' + digits(part, 8, 16);
}

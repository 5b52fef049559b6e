#include "modLogTime.h"

#include "LocalTime.h"

namespace {
void putDigits(QChar* at, int digits, int value) {
    for (QChar* digit = at + digits; digit != at; value /= 10)
        *--digit = QChar(u'0' + value % 10);
}

// Digit by digit: a long run writes two of these for every file, and QDateTime and strftime take ten times as long.
QString dateAndTime(std::time_t seconds) {
    const std::tm parts = LocalTime::Parts(seconds);
    QString text = QStringLiteral("dd.MM.yyyy HH:mm:ss");
    QChar* const at = text.data();
    putDigits(at, 2, parts.tm_mday);
    putDigits(at + 3, 2, parts.tm_mon + 1);
    putDigits(at + 6, 4, parts.tm_year + 1900);
    putDigits(at + 11, 2, parts.tm_hour);
    putDigits(at + 14, 2, parts.tm_min);
    putDigits(at + 17, 2, parts.tm_sec);
    return text;
}

std::time_t toSeconds(std::chrono::system_clock::time_point time) {
    return std::chrono::floor<std::chrono::seconds>(time.time_since_epoch()).count();
}
} // namespace

void modLogTime::ReadTimeZone() {
    LocalTime::ReadZone();
}

QString modLogTime::Text(std::chrono::system_clock::time_point time) {
    return dateAndTime(toSeconds(time));
}

QString modLogTime::Text(const FileTime& time) {
    const std::chrono::nanoseconds span(time.nanoseconds);
    return dateAndTime(std::chrono::floor<std::chrono::seconds>(span).count());
}

QString modLogTime::HoursAndMinutes(std::chrono::system_clock::time_point time) {
    return dateAndTime(toSeconds(time)).mid(11, 5);
}

int modLogTime::SecondsOfDay(std::chrono::system_clock::time_point time) {
    const std::tm parts = LocalTime::Parts(toSeconds(time));
    return (parts.tm_hour * 60 + parts.tm_min) * 60 + parts.tm_sec;
}

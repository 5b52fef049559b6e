#include "modLogTime.h"

#include <array>
#include <ctime>

namespace {
std::tm localParts(std::time_t seconds) {
    std::tm parts{};
    localtime_r(&seconds, &parts);
    return parts;
}

// strftime instead of QDateTime: a long run writes two of these for every file.
QString format(std::time_t seconds, const char* pattern) {
    const std::tm parts = localParts(seconds);
    std::array<char, 64> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), pattern, &parts);
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(length));
}

std::time_t toSeconds(std::chrono::system_clock::time_point time) {
    return std::chrono::floor<std::chrono::seconds>(time.time_since_epoch()).count();
}
} // namespace

void modLogTime::ReadTimeZone() {
    tzset();
}

QString modLogTime::Text(std::chrono::system_clock::time_point time) {
    return format(toSeconds(time), "%d.%m.%Y %H:%M:%S");
}

QString modLogTime::Text(const FileTime& time) {
    const std::chrono::nanoseconds span(time.nanoseconds);
    return format(std::chrono::floor<std::chrono::seconds>(span).count(), "%d.%m.%Y %H:%M:%S");
}

QString modLogTime::HoursAndMinutes(std::chrono::system_clock::time_point time) {
    return format(toSeconds(time), "%H:%M");
}

int modLogTime::SecondsOfDay(std::chrono::system_clock::time_point time) {
    const std::tm parts = localParts(toSeconds(time));
    return (parts.tm_hour * 60 + parts.tm_min) * 60 + parts.tm_sec;
}

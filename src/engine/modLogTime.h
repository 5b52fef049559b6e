// Dates and times as text, in local time.
#pragma once

#include "FileFacts.h"
#include <QString>
#include <chrono>

namespace modLogTime {

/// Picks up a change of the system's time zone; the C library does not notice one by itself.
void ReadTimeZone();

/// "dd.MM.yyyy HH:mm:ss", whatever the locale.
[[nodiscard]] QString Text(std::chrono::system_clock::time_point time);
[[nodiscard]] QString Text(const FileTime& time);

/// "HH:mm", 24-hour clock with leading zeros.
[[nodiscard]] QString HoursAndMinutes(std::chrono::system_clock::time_point time);

/// Since midnight, 0 to 86400.
[[nodiscard]] int SecondsOfDay(std::chrono::system_clock::time_point time);

} // namespace modLogTime

// Local time. The time zone is read once; ReadZone takes over a change of it.
#pragma once

#include <ctime>

namespace LocalTime {

void ReadZone();

/// `seconds` since 1970-01-01 UTC, in parts of local time.
[[nodiscard]] std::tm Parts(std::time_t seconds);

} // namespace LocalTime

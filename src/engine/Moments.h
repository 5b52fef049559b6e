// When local clocks show a time of day: on most days once, on some twice or not at all. Pure functions of the time zone
// as it was read last.
#pragma once

#include <QDate>
#include <QString>
#include <chrono>
#include <optional>
#include <vector>

namespace Moments {

using Second = std::chrono::sys_seconds;

/// "HH:mm" as the clock shows it; nothing for any other text.
[[nodiscard]] std::optional<std::chrono::minutes> TimeOfDay(const QString& text);

[[nodiscard]] QDate DayOf(Second moment);

/// The difference to UTC at that moment.
[[nodiscard]] std::chrono::seconds Offset(Second moment);

/// All moments at which the clocks show it, in order.
[[nodiscard]] std::vector<Second> Shown(QDate day, std::chrono::minutes time);

/// The one that counts: the first of two; where the clocks leave it out, the moment they do.
[[nodiscard]] Second On(QDate day, std::chrono::minutes time);

} // namespace Moments

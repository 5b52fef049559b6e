// The moments of a mail as text: the Date line and the boundary. English whatever the locale. Free functions, no
// failure.
#pragma once

#include <QByteArray>
#include <QDateTime>

namespace modMailDate {

/// "Sun, 5 Jan 2003 14:07:09 +0100" from a local time (RFC 5322, 3.3).
[[nodiscard]] QByteArray DateText(const QDateTime& when);

/// The hours and minutes a zone is ahead of UTC: "+0100", "-0330". The sign is that of the hours, so less than an hour
/// behind reads like as much ahead.
[[nodiscard]] QByteArray ZoneText(int secondsAhead);

/// A boundary between parts made of the day since 1899-12-30 and the time of day, both in hexadecimal.
[[nodiscard]] QByteArray Boundary(const QDateTime& when);

} // namespace modMailDate

// What a server of the Time Protocol (RFC 868) says, as a time. Pure; an answer that is none is told by the result.
#pragma once

#include <QByteArray>
#include <chrono>
#include <optional>

namespace TimeAnswer {

/// Bytes of a whole answer.
inline constexpr qsizetype Length = 4;

/// The time (UTC) behind the first four bytes, with half of the round trip added, to the nearest whole second. nullopt
/// for fewer bytes and for times that do not fit the count of seconds from 1990, that is before 1921-12-13 20:45:52.
[[nodiscard]] std::optional<std::chrono::sys_seconds> Convert(const QByteArray& answer,
                                                              std::chrono::steady_clock::duration roundTrip);

} // namespace TimeAnswer

// The uuencode form of a file's bytes (POSIX uuencode, historical algorithm). Free functions, no failure.
#pragma once

#include <QByteArray>

namespace modUuEncode {

/// Bytes that fill one line.
inline constexpr qsizetype bytesPerLine = 45;

/// Lines of 45 bytes, each led by its length and ended by CR LF. Pieces of whole lines may be encoded one by one.
[[nodiscard]] QByteArray Encode(const QByteArray& bytes);

/// What follows the last line: a line of length zero, which every decoder wants to see, and "end" (no CR LF after it).
[[nodiscard]] QByteArray End();

} // namespace modUuEncode

// Base64 as mail writes and reads it (RFC 2045, 6.8). Free functions, no failure: whatever cannot be read is skipped.
#pragma once

#include <QByteArray>

namespace modBase64 {

/// Bytes that fill one line of 76 characters.
inline constexpr qsizetype bytesPerLine = 57;

/// Lines of 76 characters with CR LF between them, none after the last. Pieces of whole lines may be encoded one by
/// one.
[[nodiscard]] QByteArray Encode(const QByteArray& bytes);

/// Characters outside the alphabet are skipped and "=" ends the data; bits that fill no byte are dropped.
[[nodiscard]] QByteArray DecodeBase64String(const QByteArray& text);

} // namespace modBase64

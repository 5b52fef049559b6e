// How text and bytes become what mail can carry: ISO-8859-1 for the body, header words (RFC 2047), base64 (RFC 2045,
// 6.8), uuencode (POSIX, historical algorithm) and ASCII domains (IDNA, RFC 3490). Pure functions. None of them fails:
// each says what becomes of input that cannot be carried.
#pragma once

#include <QByteArray>
#include <QString>

namespace modMailEncoding {

/// One ISO-8859-1 byte per character; a character without one, such as a surrogate pair, becomes a single "?".
[[nodiscard]] QByteArray Latin1(QStringView text);

/// True when Latin1() would give a byte above 126 for a character it knows.
[[nodiscard]] bool NeedsEightBits(QStringView text);

/// Free text for a header, as ISO-8859-1; no text can end its header line. CR, LF and NUL become one blank each. Bytes
/// up to 126 stay plain, in double quotes if `quoted`, and are folded at blanks when long. Anything else becomes
/// encoded words joined by CR LF TAB, never quoted: in Q form where all of it is shorter than in B form. Text with
/// address delimiters takes the B form when `quoted`, since the Q form would show them. Plain text without a blank in
/// 900 characters cannot be folded and becomes encoded words too.
[[nodiscard]] QByteArray HeaderWord(const QString& text, bool quoted);

/// For the parts of a header that allow no encoded words, such as addresses: a control character becomes a blank, a
/// character outside ASCII a "?".
[[nodiscard]] QByteArray Ascii(const QString& text);

/// Ascii() in double quotes, with quotes and backslashes inside escaped.
[[nodiscard]] QByteArray QuotedAscii(const QString& text);

/// Bytes that fill one line of base64 (76 characters) or of uuencode. Pieces of whole lines may be encoded one by one.
inline constexpr qsizetype Base64LineBytes = 57;
inline constexpr qsizetype UuLineBytes = 45;

/// Lines joined by CR LF, with none after the last.
[[nodiscard]] QByteArray Base64Lines(const QByteArray& bytes);

/// Skips characters outside the alphabet; "=" ends the data, and bits that fill no byte are dropped.
[[nodiscard]] QByteArray DecodeBase64String(const QByteArray& text);

/// Each line is led by its length and ended by CR LF.
[[nodiscard]] QByteArray UuLines(const QByteArray& bytes);

/// Follows the last line: a line of length zero, which every decoder wants to see, then "end" without CR LF.
[[nodiscard]] QByteArray UuEnd();

/// The domain in ASCII; one that has no such form stays as it is, in UTF-8, for the server to refuse.
[[nodiscard]] QByteArray DomainToAscii(const QString& domain);

/// Converts only what follows the first "@".
[[nodiscard]] QByteArray AddressToAscii(const QString& address);

} // namespace modMailEncoding

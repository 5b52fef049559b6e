// Free text in header lines (RFC 2047 and RFC 5322). Free functions, no failure: whatever the text holds, the result
// never ends the header line it stands in.
#pragma once

#include <QByteArray>
#include <QString>

namespace modHeaderWord {

/// The text as ISO-8859-1 with CR, LF and NUL replaced by one blank each: as it stands while no byte is above 126, in
/// double quotes when `quoted` asks for it (quotes and backslashes inside escaped); otherwise as encoded words, joined
/// by CR LF TAB, which are never quoted. The Q form is taken when all of it is shorter than the B form; where `quoted`
/// says that a phrase is wanted, the B form is also taken for text with delimiters of addresses, which the Q form
/// shows. Long plain text is folded at blanks; without a blank in 900 characters it becomes encoded words.
[[nodiscard]] QByteArray Encode(const QString& text, bool quoted);

/// For parts that know no encoded words, such as addresses: control characters become blanks and what is no ASCII "?".
[[nodiscard]] QByteArray Ascii(const QString& text);

/// Ascii() in double quotes, quotes and backslashes inside escaped.
[[nodiscard]] QByteArray QuotedAscii(const QString& text);

} // namespace modHeaderWord

// Mail text as ISO-8859-1 bytes. Free functions, no failure: a character that has no such byte becomes one "?".
#pragma once

#include <QByteArray>
#include <QStringView>

namespace modLatin1 {

/// One byte per character; a surrogate pair is one character.
[[nodiscard]] QByteArray FromText(QStringView text);

/// True when FromText would give a byte above 126.
[[nodiscard]] bool NeedsEightBits(QStringView text);

} // namespace modLatin1

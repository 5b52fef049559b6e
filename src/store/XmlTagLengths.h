// Looks at raw markup before it is parsed. Pure function over bytes.
#pragma once

#include <QByteArray>

namespace XmlTagLengths {

/// False when a tag is longer than `limit` bytes, or when the markup is in an encoding that cannot be scanned (UTF-32,
/// EBCDIC). Malformed markup passes: the parser refuses it.
[[nodiscard]] bool AreWithin(const QByteArray& markup, qsizetype limit);

} // namespace XmlTagLengths

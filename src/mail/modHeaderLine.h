// One header line as it goes out (RFC 5322). Free functions, no failure.
#pragma once

#include <QByteArray>

namespace modHeaderLine {

/// `name`, ": ", `value` and CR LF. The value is safe already (modHeaderWord) and may hold folds. Lines that are longer
/// than 998 bytes all the same are folded by force: the end of one would otherwise pass for a header line of its own
/// once a server or LineTransparency has broken it.
[[nodiscard]] QByteArray Write(const QByteArray& name, const QByteArray& value);

} // namespace modHeaderLine

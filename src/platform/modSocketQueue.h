// The bytes written to a socket that the system still holds. 0 where the system does not tell.
#pragma once

#include <QtGlobal>

namespace modSocketQueue {

/// Bytes that the peer of the TCP socket has not acknowledged yet.
[[nodiscard]] qint64 Untaken(qintptr descriptor);

} // namespace modSocketQueue

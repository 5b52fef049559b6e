// The system's part of HostAddresses, for the platform library alone.
#pragma once

#include <QByteArray>
#include <QStringList>

/// Numeric addresses of the host in the order in which to try them; none when it is unknown. Blocks for as long as the
/// name servers keep silent.
[[nodiscard]] QStringList LookUpAddresses(const QByteArray& host);

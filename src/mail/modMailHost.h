// Names of mail servers in the one form in which they are compared, and under which certificates and passwords know
// them.
#pragma once

#include <QString>

namespace modMailHost {

/// ASCII (IDNA), lower case, without the brackets of an address and the dot of the root.
[[nodiscard]] QString Canonical(const QString& host);

} // namespace modMailHost

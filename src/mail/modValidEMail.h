// Decides whether the program sends mail to an address. A pure function.
#pragma once

#include <QString>

namespace modValidEMail {

/// One "@" after a local part, none of the illegal characters, and a domain that is a dotted IPv4 address (0..255 per
/// part) or ends in a top-level domain of a fixed list. Blanks around it are ignored; empty labels pass. Far narrower
/// than RFC 5322, to catch typing errors.
[[nodiscard]] bool IsValidEmailAddress(const QString& address);

} // namespace modValidEMail

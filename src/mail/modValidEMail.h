// Whether a text is an address this program sends mail to. A pure function without failure.
#pragma once

#include <QString>

namespace modValidEMail {

/// One "@" after a local part, none of the illegal characters, and a domain that is a dotted IPv4 address (0..255 per
/// part) or ends in a top-level domain of a fixed list. Blanks around it do not count; empty labels pass. Far narrower
/// than RFC 5322, to catch slips of the pen.
[[nodiscard]] bool IsValidEmailAddress(const QString& address);

} // namespace modValidEMail

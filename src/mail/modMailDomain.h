// Domains as mail servers and name servers take them: in ASCII (IDNA, RFC 3490). Pure functions without failure; what
// has no such form stays as it stands, in UTF-8, for the server to refuse.
#pragma once

#include <QByteArray>
#include <QString>

namespace modMailDomain {

[[nodiscard]] QByteArray ToAscii(const QString& domain);

/// The part behind the first "@" in ASCII form, the rest as it stands.
[[nodiscard]] QByteArray AddressToAscii(const QString& address);

} // namespace modMailDomain

// The rules of encryption for mail: TLS 1.2 or later, a certificate that is verified and names the host, no exception
// but issuers of one's own from a CA file.
#pragma once

#include <QSslConfiguration>
#include <QSslError>

class StringTable;

namespace MailTls {

struct Rules {
    QSslConfiguration configuration;
    QString failure; ///< why nothing can be encrypted; "" when it can
};

/// With an empty `caFile` the issuers that the system trusts count.
[[nodiscard]] Rules Read(const QString& caFile, const StringTable& texts);

/// Why the certificate was refused, in words.
[[nodiscard]] QString Refusal(const QList<QSslError>& errors, const QString& host, const StringTable& texts);

} // namespace MailTls

// MX queries and their replies as packets (RFC 1035, 3.3.9 and 4), without a socket. Pure functions: a domain that
// cannot be asked for and a packet that is no reply give nullopt.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

namespace modMXQuery {

/// The bytes of a reply that are read; the rest is dropped.
inline constexpr qsizetype MaximumReply = 2048;

struct MailHost {
    QString host;           ///< printable ASCII, dots between the labels only; never empty
    quint16 preference = 0; ///< the lower the better
    bool operator==(const MailHost&) const = default;
};

struct Reply {
    quint16 answers = 0;         ///< the header's count, of every type
    std::vector<MailHost> hosts; ///< by preference, equal ones in the order of the reply
};

/// The query for the MX records of `domain`, recursion desired, in its ASCII form (IDNA, RFC 3490). nullopt for what
/// cannot be a domain: an empty label or one above 63 bytes, more than 255 bytes in all, blanks or control characters.
[[nodiscard]] std::optional<QByteArray> BuildQuery(const QString& domain);

/// Reads the reply to `query`; nullopt when the packet is no reply to it (identifier, response bit, question). A broken
/// record ends the reading: the hosts before it count. Exchanges that are no host name are left out, and so is the
/// single dot of a domain that accepts no mail (RFC 7505).
[[nodiscard]] std::optional<Reply> ParseReply(const QByteArray& packet, const QByteArray& query);

} // namespace modMXQuery

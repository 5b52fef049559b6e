// Questions for a domain's mail exchangers and the replies to them, as the packets of RFC 1035 (sections 3.3.9 and 4).
// Pure functions without a socket or a state; what cannot be asked or is no reply is nullopt.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

namespace modMXQuery {

/// Replies are read as far as this many bytes; what comes after is lost.
inline constexpr qsizetype MaximumReply = 2048;

struct MailHost {
    QString host;           ///< printable ASCII, dots between the labels only; never empty
    quint16 preference = 0; ///< the lower the better
    bool operator==(const MailHost&) const = default;
};

struct Reply {
    quint16 answers = 0;         ///< as the header counts them, whatever their type
    std::vector<MailHost> hosts; ///< by preference, equal ones in the order of the reply
};

/// The question for the MX records of `domain`, to be answered recursively. Letters outside ASCII go as IDNA (RFC
/// 3490). nullopt when no domain can be called so: an empty label or one above 63 bytes, above 255 bytes in all, blanks
/// or control characters.
[[nodiscard]] std::optional<QByteArray> BuildQuery(const QString& domain);

/// Reads the reply to `query`; nullopt when the packet is none to it (identifier, response bit, question). Broken
/// records end the reading: the hosts before them count. Exchanges that are no host's name are left out, with them the
/// single dot by which a domain says that it takes no mail (RFC 7505).
[[nodiscard]] std::optional<Reply> ParseReply(const QByteArray& packet, const QByteArray& query);

} // namespace modMXQuery

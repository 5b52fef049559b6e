// Cuts what a mail server sends into replies (RFC 5321 4.2, RFC 1939 3): bytes come in any pieces, whole replies go
// out. Owns what is not complete yet, within bounds; a server that exceeds them is reported once and not read any
// further.
#pragma once

#include <QByteArray>
#include <optional>

struct ServerReply {
    QByteArray code; ///< the first three characters, upper case: "250", "+OK", "-ER"
    QByteArray text; ///< all lines of the reply, joined by CR LF
};

class ReplyReader final {
  public:
    static constexpr qsizetype kLongestLine = 4096;   ///< bytes
    static constexpr qsizetype kLongestReply = 65536; ///< bytes

    void Feed(const QByteArray& bytes);

    /// The next complete reply; nullopt until its final line (a fourth character other than "-") is there.
    [[nodiscard]] std::optional<ServerReply> Next();

    /// The server sent a line or a reply that is too long.
    [[nodiscard]] bool IsOverrun() const { return m_overrun; }

    /// Forgets everything, for a new connection.
    void Clear();

  private:
    QByteArray m_bytes;
    QByteArray m_reply;
    bool m_overrun = false;
};

// The wire between a mail session and its server. MailWire is what the session does to the connection; MailConnection
// implements it over a socket, tests record the calls. ReplyReader cuts what comes back into replies and gives up on a
// server that exceeds its bounds.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

class MailWire {
  public:
    virtual ~MailWire() = default;

    /// Closes the present connection and starts a new one. The outcome reaches the session later, never during the
    /// call.
    virtual void Open(const QString& host, quint16 port) = 0;
    virtual void Send(const QByteArray& bytes) = 0;

    /// Encrypts the connection from here on; how that ends reaches the session later. False when the server has sent
    /// something already: it would pass for encrypted.
    [[nodiscard]] virtual bool StartEncryption() = 0;

    /// Still sends what was written; ignores whatever arrives from now on.
    virtual void Close() = 0;

    /// Bytes sent that have not left this process yet.
    [[nodiscard]] virtual qint64 Unsent() const = 0;

    /// Bytes sent that the peer has not acknowledged yet, those in the system's buffers included.
    [[nodiscard]] virtual qint64 Untaken() const = 0;
};

struct ServerReply {
    QByteArray code; ///< the first three characters, upper case: "250", "+OK", "-ER"
    QByteArray text; ///< all lines of the reply, joined by CR LF
};

/// Cuts a byte stream into replies (RFC 5321, 4.2; RFC 1939, 3), whatever pieces it arrives in.
class ReplyReader final {
  public:
    static constexpr qsizetype LongestLine = 4096;   ///< bytes
    static constexpr qsizetype LongestReply = 65536; ///< bytes

    void Feed(const QByteArray& bytes);

    /// The next complete reply; nullopt until its final line (a fourth character other than "-") has arrived.
    [[nodiscard]] std::optional<ServerReply> Next();

    /// The server sent a line or a reply that is too long; nothing more is read.
    [[nodiscard]] bool IsOverrun() const { return m_overrun; }

    /// Whether nothing of a further reply has arrived.
    [[nodiscard]] bool IsEmpty() const { return m_bytes.isEmpty() && m_reply.isEmpty() && !m_overrun; }

    /// Starts afresh for a new connection.
    void Clear();

  private:
    QByteArray m_bytes;
    QByteArray m_reply;
    bool m_overrun = false;
};

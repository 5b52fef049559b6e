// What a mail session does to its connection. Implemented over a socket; tests write down what was asked of it.
#pragma once

#include <QByteArray>
#include <QString>

class MailWire {
  public:
    virtual ~MailWire() = default;

    /// Closes what is open and begins to connect. The session hears of the outcome later, never from inside.
    virtual void Open(const QString& host, quint16 port) = 0;
    virtual void Send(const QByteArray& bytes) = 0;

    /// What was sent goes out still; nothing that arrives is heard of any more.
    virtual void Close() = 0;

    /// Bytes that were sent and have not left this program yet.
    [[nodiscard]] virtual qint64 Unsent() const = 0;

    /// Bytes that were sent and that the peer has not taken yet; those in the system's buffers count too.
    [[nodiscard]] virtual qint64 Untaken() const = 0;
};

// Runs a mail session over TCP. Owns the socket, the lookup of the host's addresses, the session and the timer that
// makes it check its deadline. Failures arrive as the session's events.
#pragma once

#include "HostAddresses.h"
#include "MailSession.h"
#include <QObject>
#include <QTcpSocket>
#include <QTimer>

class Clock;

class MailConnection final : public QObject, private MailWire {
    Q_OBJECT
  public:
    MailConnection(const Clock& clock, MailSessionEvents& events);
    ~MailConnection() override;

    /// The operations of the session; Connect and Send also start the timer.
    void Connect(const MailServers& servers, const QString& sender);
    void Send(const QString& sender, const QStringList& recipients, std::unique_ptr<MessageStream> message);
    void Disconnect() { m_session.Disconnect(); }
    void Shutdown() { m_session.Shutdown(); }
    [[nodiscard]] bool IsReady() const { return m_session.IsReady(); }

  private:
    void Open(const QString& host, quint16 port) override;
    void Send(const QByteArray& bytes) override;
    void Close() override;
    [[nodiscard]] qint64 Unsent() const override;
    [[nodiscard]] qint64 Untaken() const override;
    void connectToNext();
    void connectSocket();
    void lost();
    void tick();
    void read();

    int m_number = 0; ///< counts the connections, to recognise calls queued for an earlier one
    HostAddresses m_lookUp;
    QStringList m_addresses; ///< of the server, not tried yet
    quint16 m_port = 0;
    std::unique_ptr<QTcpSocket> m_socket;
    bool m_lost = false; ///< the socket is closed; its last bytes may still be unread
    int m_reads = 0;     ///< since the last tick
    ReplyReader m_reader;
    QTimer m_timer;
    MailSession m_session;
};

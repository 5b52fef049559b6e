// Puts a mail session on a TCP socket. Owns the socket, the look-up of the host's addresses, the session and the timer
// that lets it look at the clock; they end with it at once. Failures come as the session's events.
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

    /// Operations begin through here; nothing else keeps the clock running.
    void Connect(const MailServers& servers, const QString& sender);
    void Send(const QString& sender, const QStringList& recipients, std::unique_ptr<MessageStream> message);
    void Disconnect() { m_session.Disconnect(); }
    void Shutdown() { m_session.Shutdown(); }
    [[nodiscard]] bool IsReady() const { return m_session.IsReady(); }
    [[nodiscard]] bool IsBusy() const { return m_session.IsBusy(); }

  private:
    void Open(const QString& host, quint16 port) override;
    void Send(const QByteArray& bytes) override;
    void Close() override;
    [[nodiscard]] qint64 Unsent() const override;
    [[nodiscard]] qint64 Untaken() const override;
    void connectToNext();
    void connectSocket();
    void lost();
    void look();
    void read();

    int m_number = 0; ///< of the present connection
    HostAddresses m_lookUp;
    QStringList m_addresses; ///< of the server, those that were not tried yet
    quint16 m_port = 0;
    std::unique_ptr<QTcpSocket> m_socket;
    bool m_lost = false; ///< the socket has ended; what it brought may still be unread
    int m_reads = 0;     ///< since the last look
    ReplyReader m_reader;
    QTimer m_timer;
    MailSession m_session;
};

// Puts a mail session on a TCP socket. Owns the socket, the session and the timer that lets it look at the clock; they
// end with it at once. Failures come as the session's events.
#pragma once

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
    void Shutdown();
    [[nodiscard]] bool IsReady() const { return m_session.IsReady(); }
    [[nodiscard]] bool IsBusy() const { return m_session.IsBusy(); }

  private:
    void Open(const QString& host, quint16 port) override;
    void Send(const QByteArray& bytes) override;
    void Close() override;
    [[nodiscard]] qint64 Unsent() const override;
    void connectSocket();
    void read();

    int m_number = 0; ///< of the present connection
    std::unique_ptr<QTcpSocket> m_socket;
    ReplyReader m_reader;
    QTimer m_timer;
    MailSession m_session;
};

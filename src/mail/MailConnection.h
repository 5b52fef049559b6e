// Runs a mail session over TCP, encrypted where the settings say so. Owns the socket, the lookup of the host's
// addresses, the session and the timer that makes it check its deadline. Failures arrive as the session's events.
#pragma once

#include "HostAddresses.h"
#include "MailSession.h"
#include <QObject>
#include <QSslConfiguration>
#include <QSslError>
#include <QTcpSocket>
#include <QTimer>
#include <optional>

class Clock;
class QSslSocket;
class StringTable;

class MailConnection final : public QObject, private MailWire {
    Q_OBJECT
  public:
    MailConnection(const Clock& clock, MailSessionEvents& events, const StringTable& texts);
    ~MailConnection() override;

    /// The rules of the encryption; none where there is to be no encryption. A configuration loads the TLS library.
    using TlsRules = std::optional<QSslConfiguration>;

    /// The operations of the session; Connect and Send also start the timer.
    void Connect(const MailServers& servers, const QString& sender, const TlsRules& rules);
    void Send(const QString& sender, const QStringList& recipients, std::unique_ptr<MessageStream> message);
    void Disconnect() { m_session.Disconnect(); }
    void Shutdown() { m_session.Shutdown(); }
    [[nodiscard]] bool IsReady() const { return m_session.IsReady(); }

  private:
    void Open(const QString& host, quint16 port) override;
    void Send(const QByteArray& bytes) override;
    [[nodiscard]] bool StartEncryption() override;
    void Close() override;
    [[nodiscard]] qint64 Unsent() const override;
    [[nodiscard]] qint64 Untaken() const override;
    void connectToNext();
    [[nodiscard]] std::unique_ptr<QTcpSocket> makeSocket();
    void connectSocket();
    void connected();
    void encrypted();
    void arrived();
    void left();
    [[nodiscard]] QString handshakeFailure() const;
    void lost();
    void tick();
    void read();

    const StringTable& m_texts;
    int m_number = 0; ///< counts the connections, to recognise calls queued for an earlier one
    HostAddresses m_lookUp;
    QStringList m_addresses; ///< of the server, not tried yet
    quint16 m_port = 0;
    QString m_host; ///< as certificates name it
    TlsRules m_rules;
    QList<QSslError> m_objections; ///< to the certificate
    bool m_isHandshaking = false;  ///< what arrives is not to be read
    std::unique_ptr<QTcpSocket> m_socket;
    QSslSocket* m_tls = nullptr; ///< the same socket if it can encrypt
    bool m_lost = false;         ///< the socket is closed; its last bytes may still be unread
    int m_reads = 0;             ///< since the last tick
    ReplyReader m_reader;
    QTimer m_timer;
    MailSession m_session;
};

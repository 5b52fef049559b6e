#include "MailConnection.h"
#include "Clock.h"
#include "MailTls.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modLogTime.h"
#include "modMailEncoding.h"
#include "modMailHost.h"
#include "modSocketQueue.h"

#include <QHostAddress>
#include <QSslSocket>

namespace {
constexpr std::chrono::milliseconds tickInterval{10};
constexpr std::chrono::seconds linger{5};
constexpr qint64 readAtOnce = 1024; // bytes
constexpr int mostReads = 8;        // between two ticks
constexpr qint64 readAhead = 4096;  // bytes
} // namespace

MailConnection::MailConnection(const Clock& clock, MailSessionEvents& events, const StringTable& texts)
    : m_texts(texts), m_session(*this, events, texts, [&clock] { return modLogTime::SecondsOfDay(clock.Now()); }) {
    m_timer.setInterval(tickInterval);
    connect(&m_timer, &QTimer::timeout, this, &MailConnection::tick);
    connect(&m_lookUp, &HostAddresses::Found, this, [this](const QStringList& addresses) {
        m_addresses = addresses;
        m_addresses.isEmpty() ? m_session.OnClosed() : connectToNext();
    });
}

MailConnection::~MailConnection() = default;

void MailConnection::Connect(const MailServers& servers, const QString& sender, const TlsRules& rules) {
    m_rules = rules;
    m_timer.start();
    m_session.Connect(servers, sender);
}

void MailConnection::Send(const QString& sender, const QStringList& recipients,
                          std::unique_ptr<MessageStream> message) {
    m_timer.start();
    m_session.Send(sender, recipients, std::move(message));
}

void MailConnection::Open(const QString& host, quint16 port) {
    Close();
    m_reader.Clear();
    m_port = port;
    m_host = modMailHost::Canonical(host);
    const bool inBrackets = host.startsWith(u'[') && host.endsWith(u']');
    const QString name = inBrackets ? host.mid(1, host.size() - 2) : host;
    m_addresses = {name};
    if (QHostAddress(name).isNull())
        m_lookUp.Begin(modMailEncoding::DomainToAscii(name));
    else
        connectToNext();
}

void MailConnection::connectToNext() {
    Close();
    m_socket = makeSocket();
    m_socket->setReadBufferSize(readAhead);
    connectSocket();
    m_socket->connectToHost(QHostAddress(m_addresses.takeFirst()), m_port);
}

/// Certificates name the host, not the address that was looked up.
std::unique_ptr<QTcpSocket> MailConnection::makeSocket() {
    m_objections.clear();
    if (!m_rules)
        return std::make_unique<QTcpSocket>();
    auto socket = std::make_unique<QSslSocket>();
    socket->setSslConfiguration(*m_rules);
    socket->setPeerVerifyName(m_host);
    m_tls = socket.get();
    return socket;
}

void MailConnection::connectSocket() {
    // Queued, so that an error inside a call does not call back into the session. By then the next connection may be
    // open already; the number tells.
    const auto present = [this, number = ++m_number](void (MailConnection::*then)()) {
        return [this, number, then] {
            if (number == m_number)
                (this->*then)();
        };
    };
    connect(m_socket.get(), &QTcpSocket::disconnected, this, present(&MailConnection::lost), Qt::QueuedConnection);
    connect(m_socket.get(), &QTcpSocket::errorOccurred, this, present(&MailConnection::lost), Qt::QueuedConnection);
    // A socket that encrypts is in the middle of its work when it tells of it.
    const auto type = m_tls != nullptr ? Qt::QueuedConnection : Qt::DirectConnection;
    connect(m_socket.get(), &QTcpSocket::connected, this, present(&MailConnection::connected), type);
    connect(m_socket.get(), &QTcpSocket::readyRead, this, present(&MailConnection::arrived), type);
    connect(m_socket.get(), &QTcpSocket::bytesWritten, this, present(&MailConnection::left), type);
    if (m_tls == nullptr)
        return;
    connect(m_tls, &QSslSocket::encryptedBytesWritten, this, present(&MailConnection::left), type);
    connect(m_tls, &QSslSocket::encrypted, this, present(&MailConnection::encrypted), type);
    connect(m_tls, &QSslSocket::sslErrors, this, [this](const QList<QSslError>& errors) { m_objections = errors; });
}

void MailConnection::connected() {
    m_addresses.clear();
    m_session.OnConnected();
}

void MailConnection::arrived() {
    if (m_reads < mostReads)
        read();
}

void MailConnection::left() {
    m_session.OnProgress();
}

bool MailConnection::StartEncryption() {
    // Bytes that are there now Qt would hand out as if they had come encrypted.
    if (m_tls == nullptr || !m_reader.IsEmpty() || m_tls->bytesAvailable() > 0)
        return false;
    m_isHandshaking = true;
    m_tls->startClientEncryption();
    return true;
}

void MailConnection::encrypted() {
    m_isHandshaking = false;
    m_session.OnEncrypted();
}

QString MailConnection::handshakeFailure() const {
    return m_objections.isEmpty()
               ? m_texts[Text::MailEncryptionFailed].arg(m_host, modForeignText::FromServer(m_socket->errorString()))
               : MailTls::Refusal(m_objections, m_host, m_texts);
}

void MailConnection::lost() {
    if (!m_addresses.isEmpty())
        return connectToNext();
    if (m_isHandshaking)
        return m_session.OnNotEncrypted(handshakeFailure());
    m_lost = true;
    m_timer.start();
    tick();
}

/// Reads what arrived before the socket closed, then reports the loss.
void MailConnection::tick() {
    m_reads = 0;
    if (m_socket && !m_isHandshaking && m_socket->bytesAvailable() > 0)
        read();
    else if (std::exchange(m_lost, false))
        m_session.OnClosed();
    m_session.Poll();
    if (!m_session.IsBusy() && !m_lost)
        m_timer.stop();
}

/// A little at a time; the rest waits for the timer. A server that never stops sending must not take all of the
/// program's time or memory.
void MailConnection::read() {
    if (m_isHandshaking)
        return;
    // Each reply may end this connection.
    const int before = m_number;
    ++m_reads;
    m_reader.Feed(m_socket->read(readAtOnce));
    while (m_number == before) {
        const std::optional<ServerReply> reply = m_reader.Next();
        if (!reply)
            break;
        m_session.OnReply(*reply);
    }
    if (m_number == before && m_reader.IsOverrun())
        m_session.OnOverrun();
}

void MailConnection::Send(const QByteArray& bytes) {
    if (m_socket && m_socket->state() == QAbstractSocket::ConnectedState)
        m_socket->write(bytes);
}

/// The socket outlives this call until its last bytes have left or the linger time is over.
void MailConnection::Close() {
    m_lookUp.Cancel();
    m_lost = false;
    if (!m_socket)
        return;
    QTcpSocket* const socket = m_socket.release();
    m_tls = nullptr;
    m_isHandshaking = false;
    ++m_number;
    socket->disconnect();
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::errorOccurred, socket, &QObject::deleteLater);
    QTimer::singleShot(linger, socket, &QObject::deleteLater);
    if (socket->state() == QAbstractSocket::ConnectedState)
        socket->disconnectFromHost();
    else
        socket->deleteLater();
}

qint64 MailConnection::Unsent() const {
    return m_socket ? m_socket->bytesToWrite() + (m_tls != nullptr ? m_tls->encryptedBytesToWrite() : 0) : 0;
}

qint64 MailConnection::Untaken() const {
    return m_socket ? Unsent() + modSocketQueue::Untaken(m_socket->socketDescriptor()) : 0;
}

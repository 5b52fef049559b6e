#include "MailConnection.h"
#include "Clock.h"
#include "modLogTime.h"
#include "modMailEncoding.h"
#include "modSocketQueue.h"

#include <QHostAddress>

namespace {
constexpr std::chrono::milliseconds tickInterval{10};
constexpr std::chrono::seconds linger{5};
constexpr qint64 readAtOnce = 1024; // bytes
constexpr int mostReads = 8;        // between two ticks
constexpr qint64 readAhead = 4096;  // bytes
} // namespace

MailConnection::MailConnection(const Clock& clock, MailSessionEvents& events)
    : m_session(*this, events, [&clock] { return modLogTime::SecondsOfDay(clock.Now()); }) {
    m_timer.setInterval(tickInterval);
    connect(&m_timer, &QTimer::timeout, this, &MailConnection::tick);
    connect(&m_lookUp, &HostAddresses::Found, this, [this](const QStringList& addresses) {
        m_addresses = addresses;
        m_addresses.isEmpty() ? m_session.OnClosed() : connectToNext();
    });
}

MailConnection::~MailConnection() = default;

void MailConnection::Connect(const MailServers& servers, const QString& sender) {
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
    m_socket = std::make_unique<QTcpSocket>();
    m_socket->setReadBufferSize(readAhead);
    connectSocket();
    m_socket->connectToHost(QHostAddress(m_addresses.takeFirst()), m_port);
}

void MailConnection::connectSocket() {
    // Queued, so that an error inside a call does not call back into the session. By then the next connection may be
    // open already; the number tells.
    const auto lost = [this, number = ++m_number] {
        if (number == m_number)
            this->lost();
    };
    connect(m_socket.get(), &QTcpSocket::connected, this, [this] {
        m_addresses.clear();
        m_session.OnConnected();
    });
    connect(m_socket.get(), &QTcpSocket::readyRead, this, [this] {
        if (m_reads < mostReads)
            read();
    });
    connect(m_socket.get(), &QTcpSocket::bytesWritten, this, [this] { m_session.OnProgress(); });
    connect(m_socket.get(), &QTcpSocket::disconnected, this, lost, Qt::QueuedConnection);
    connect(m_socket.get(), &QTcpSocket::errorOccurred, this, lost, Qt::QueuedConnection);
}

void MailConnection::lost() {
    if (!m_addresses.isEmpty())
        return connectToNext();
    m_lost = true;
    m_timer.start();
    tick();
}

/// Reads what arrived before the socket closed, then reports the loss.
void MailConnection::tick() {
    m_reads = 0;
    if (m_socket && m_socket->bytesAvailable() > 0)
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
    return m_socket ? m_socket->bytesToWrite() : 0;
}

qint64 MailConnection::Untaken() const {
    return m_socket ? Unsent() + modSocketQueue::Untaken(m_socket->socketDescriptor()) : 0;
}

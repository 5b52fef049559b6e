#include "MailConnection.h"
#include "Clock.h"
#include "modLogTime.h"
#include "modMailDomain.h"
#include "modSocketQueue.h"

#include <QHostAddress>

namespace {
constexpr std::chrono::milliseconds kLook{10};
constexpr std::chrono::seconds kLinger{5};
constexpr qint64 kReadAtOnce = 1024; // bytes
constexpr int kMostReads = 8;        // between two looks
constexpr qint64 kReadAhead = 4096;  // bytes
} // namespace

MailConnection::MailConnection(const Clock& clock, MailSessionEvents& events)
    : m_session(*this, events, [&clock] { return modLogTime::SecondsOfDay(clock.Now()); }) {
    m_timer.setInterval(kLook);
    connect(&m_timer, &QTimer::timeout, this, &MailConnection::look);
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
        m_lookUp.Begin(modMailDomain::ToAscii(name));
    else
        connectToNext();
}

void MailConnection::connectToNext() {
    Close();
    m_socket = std::make_unique<QTcpSocket>();
    m_socket->setReadBufferSize(kReadAhead);
    connectSocket();
    m_socket->connectToHost(QHostAddress(m_addresses.takeFirst()), m_port);
}

void MailConnection::connectSocket() {
    // Queued: an error inside a call is no callback out of it. Such a call may come when the next connection stands
    // already.
    const auto lost = [this, number = ++m_number] {
        if (number == m_number)
            this->lost();
    };
    connect(m_socket.get(), &QTcpSocket::connected, this, [this] {
        m_addresses.clear();
        m_session.OnConnected();
    });
    connect(m_socket.get(), &QTcpSocket::readyRead, this, [this] {
        if (m_reads < kMostReads)
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
    look();
}

/// What arrived before the end is read first.
void MailConnection::look() {
    m_reads = 0;
    if (m_socket && m_socket->bytesAvailable() > 0)
        read();
    else if (std::exchange(m_lost, false))
        m_session.OnClosed();
    m_session.Poll();
    if (!m_session.IsBusy() && !m_lost)
        m_timer.stop();
}

/// A little at a time, so that a server which never stops talking takes neither the program's time nor its memory: the
/// rest waits for the timer.
void MailConnection::read() {
    // Each reply may end the connection, and with it the reading.
    const int before = m_number;
    ++m_reads;
    m_reader.Feed(m_socket->read(kReadAtOnce));
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

/// The socket lives on without us until what was written has left, or the server gives up.
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
    QTimer::singleShot(kLinger, socket, &QObject::deleteLater);
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

#include "MailConnection.h"
#include "Clock.h"
#include "modLogTime.h"

namespace {
constexpr std::chrono::milliseconds kLook{10};
constexpr std::chrono::seconds kLinger{5};
} // namespace

MailConnection::MailConnection(const Clock& clock, MailSessionEvents& events)
    : m_session(*this, events, [&clock] { return modLogTime::SecondsOfDay(clock.Now()); }) {
    m_timer.setInterval(kLook);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        m_session.Poll();
        if (!m_session.IsBusy())
            m_timer.stop();
    });
}

MailConnection::~MailConnection() = default;

void MailConnection::Connect(const MailServers& servers, const QString& sender) {
    m_session.Connect(servers, sender);
    m_timer.start();
}

void MailConnection::Send(const QString& sender, const QStringList& recipients,
                          std::unique_ptr<MessageStream> message) {
    m_session.Send(sender, recipients, std::move(message));
    m_timer.start();
}

void MailConnection::Shutdown() {
    m_session.Shutdown();
    m_session.Poll();
}

void MailConnection::Open(const QString& host, quint16 port) {
    Close();
    m_reader.Clear();
    m_socket = std::make_unique<QTcpSocket>();
    connectSocket();
    m_socket->connectToHost(host, port);
}

void MailConnection::connectSocket() {
    // Queued: what arrived before the end is read first, and an error inside a call is no callback out of it. Such a
    // call may come when the next connection stands already.
    const auto closed = [this, number = ++m_number] {
        if (number == m_number)
            m_session.OnClosed();
    };
    connect(m_socket.get(), &QTcpSocket::connected, this, [this] { m_session.OnConnected(); });
    connect(m_socket.get(), &QTcpSocket::readyRead, this, &MailConnection::read);
    connect(m_socket.get(), &QTcpSocket::bytesWritten, this, [this] { m_session.OnProgress(); });
    connect(m_socket.get(), &QTcpSocket::disconnected, this, closed, Qt::QueuedConnection);
    connect(m_socket.get(), &QTcpSocket::errorOccurred, this, closed, Qt::QueuedConnection);
}

void MailConnection::read() {
    // Each reply may end the connection, and with it the reading.
    const QTcpSocket* const before = m_socket.get();
    m_reader.Feed(m_socket->readAll());
    while (m_socket.get() == before) {
        const std::optional<ServerReply> reply = m_reader.Next();
        if (!reply)
            break;
        m_session.OnReply(*reply);
    }
    if (m_socket.get() == before && m_reader.IsOverrun())
        m_session.OnOverrun();
}

void MailConnection::Send(const QByteArray& bytes) {
    if (m_socket && m_socket->state() == QAbstractSocket::ConnectedState)
        m_socket->write(bytes);
}

/// The socket lives on without us until what was written has left, or the server gives up.
void MailConnection::Close() {
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

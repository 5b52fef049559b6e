#include "ClockSync.h"

#include "Clock.h"
#include "StringTable.h"

namespace {

/// A server in the past has lost its battery. If the clock followed it, every existing file would look newer than all
/// later copies.
constexpr std::chrono::sys_days earliest{std::chrono::year{2020} / std::chrono::January / 1};

} // namespace

ClockSync::ClockSync(SystemClock& systemClock, const Clock& clock, const StringTable& texts, TimeServer server,
                     std::chrono::milliseconds timeout)
    : m_systemClock(systemClock), m_clock(clock), m_texts(texts), m_server(std::move(server)) {
    m_timeout.setSingleShot(true);
    m_timeout.setInterval(timeout);
    connect(&m_timeout, &QTimer::timeout, this, [this] { fail(m_texts[Text::TimeServerSilent]); });
}

ClockSync::~ClockSync() {
    drop();
}

void ClockSync::Begin() {
    drop();
    m_attempt = std::make_shared<const int>();
    m_answer = {};
    m_socket = std::make_unique<QTcpSocket>();
    m_socket->setReadBufferSize(TimeAnswer::MaxBytes + 1);
    connectSocket();
    m_timeout.start();
    m_socket->connectToHost(m_server.host, m_server.port);
}

void ClockSync::connectSocket() {
    // Queued, because each may delete the socket. Calls still queued for an earlier attempt are dropped.
    connect(m_socket.get(), &QTcpSocket::connected, this, [this] { m_connected = m_clock.MonotonicNow(); });
    connect(m_socket.get(), &QTcpSocket::readyRead, this, &ClockSync::read, Qt::QueuedConnection);
    const auto unlessDropped = [this](auto action) {
        return [this, action, attempt = std::weak_ptr<const int>(m_attempt)] {
            if (!attempt.expired() && m_socket)
                action();
        };
    };
    connect(m_socket.get(), &QTcpSocket::disconnected, this, unlessDropped([this] { onClosed(); }),
            Qt::QueuedConnection);
    const auto onError = unlessDropped([this] {
        if (m_socket->error() != QAbstractSocket::RemoteHostClosedError) // the normal end of an answer
            fail(m_socket->errorString());
    });
    connect(m_socket.get(), &QTcpSocket::errorOccurred, this, onError, Qt::QueuedConnection);
}

void ClockSync::read() {
    if (!m_socket)
        return;
    m_answer.Add(m_socket->read(TimeAnswer::MaxBytes + 1));
    if (m_answer.IsTooLong())
        fail(m_texts[Text::TimeServerNonsense]);
}

void ClockSync::onClosed() {
    read();
    if (!m_socket)
        return;
    const auto roundTrip = m_clock.MonotonicNow() - m_connected;
    m_timeout.stop();
    m_socket.reset();
    const auto time = m_answer.Time(roundTrip);
    if (!time)
        Q_EMIT Ignored();
    else if (*time < earliest)
        fail(m_texts[Text::TimeServerNonsense]);
    else
        set(*time);
}

void ClockSync::set(std::chrono::system_clock::time_point time) {
    m_systemClock.Set(time, [this, attempt = std::weak_ptr<const int>(m_attempt)](const QString& reason) {
        if (attempt.expired())
            return;
        if (reason.isEmpty())
            Q_EMIT Synchronised();
        else
            Q_EMIT Failed(reason);
    });
}

void ClockSync::drop() {
    m_attempt.reset();
    m_timeout.stop();
    if (m_socket)
        m_socket->disconnect(this);
    m_socket.reset();
}

void ClockSync::fail(const QString& reason) {
    drop();
    Q_EMIT Failed(reason);
}

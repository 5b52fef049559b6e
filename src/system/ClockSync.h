// Sets the computer's clock from a Time Protocol server (RFC 868) without blocking the event loop. Owns the connection
// of one synchronisation at a time. Each Begin emits exactly one of the signals, unless a later Begin replaces it.
#pragma once

#include "Machine.h"
#include "TimeAnswer.h"
#include <QObject>
#include <QString>
#include <QTcpSocket>
#include <QTimer>
#include <chrono>
#include <memory>

class Clock;
class StringTable;

/// A public server by default.
struct TimeServer {
    QString host = QStringLiteral("time.nist.gov");
    quint16 port = 37;
};

class ClockSync final : public QObject {
    Q_OBJECT
  public:
    /// Everything passed in must outlive this object. `timeout` covers connection and answer together.
    ClockSync(SystemClock& systemClock, const Clock& clock, const StringTable& texts, TimeServer server = {},
              std::chrono::milliseconds timeout = std::chrono::seconds(10));
    ~ClockSync() override;

    /// Asks the server. Drops a pending synchronisation, which then emits nothing. Never emits a signal itself.
    void Begin();

  Q_SIGNALS:
    /// The clock was set.
    void Synchronised();

    /// Network or system refused, or the answer was invalid.
    void Failed(const QString& reason);

    /// The answer was too short or out of range: the clock was not set and no message is due.
    void Ignored();

  private:
    void connectSocket();
    void read();
    void onClosed();
    void set(std::chrono::system_clock::time_point time);
    void drop();
    void fail(const QString& reason);

    SystemClock& m_systemClock;
    const Clock& m_clock;
    const StringTable& m_texts;
    TimeServer m_server;
    QTimer m_timeout;
    std::unique_ptr<QTcpSocket> m_socket;
    TimeAnswer m_answer;
    std::chrono::steady_clock::time_point m_connected;
    std::shared_ptr<const int> m_attempt; ///< expires with the attempt, so that late outcomes are dropped
};

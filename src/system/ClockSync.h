// Sets the computer's clock by a time server, without holding up the event loop. Owns the connection of one
// synchronisation at a time. Every Begin ends with exactly one of the signals, unless it is dropped.
#pragma once

#include "Machine.h"
#include "TimeServer.h"
#include <QObject>
#include <QTcpSocket>
#include <QTimer>
#include <memory>

class Clock;
class StringTable;

class ClockSync final : public QObject {
    Q_OBJECT
  public:
    /// Everything handed in must outlive this object. `timeout` is for connection and answer together.
    ClockSync(SystemClock& systemClock, const Clock& clock, const StringTable& texts, TimeServer server = {},
              std::chrono::milliseconds timeout = std::chrono::seconds(10));
    ~ClockSync() override;

    /// Asks the server. One under way is dropped and stays silent. No signal comes from inside of this call.
    void Begin();

  Q_SIGNALS:
    /// The clock was set.
    void Synchronised();

    /// It was not, for this reason of the network's or the system's; or the answer lies before 2020.
    void Failed(const QString& reason);

    /// It was not, and there is nothing to say: the server's answer was too short or out of range.
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
    QByteArray m_answer;
    std::chrono::steady_clock::time_point m_connected;
    std::shared_ptr<const int> m_attempt; ///< expires with it, for outcomes that come too late
};

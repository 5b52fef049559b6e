// The number that a time server sends, and servers that do not behave. No clock is set.
#include "ClockSync.h"
#include "Fakes.h"
#include "StringTable.h"
#include "TimeAnswer.h"

#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimeZone>

using namespace std::chrono_literals;

namespace {

QString asText(std::chrono::system_clock::time_point time) {
    return QDateTime::fromMSecsSinceEpoch(
               std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count(), Qt::UTC)
        .toString(Qt::ISODate);
}

/// Every look at it finds it 1.2 seconds on: a round trip takes two.
class SteppingClock final : public Clock {
  public:
    std::chrono::system_clock::time_point Now() const override { return {}; }
    std::chrono::steady_clock::time_point MonotonicNow() const override { return m_now += 1200ms; }

  private:
    mutable std::chrono::steady_clock::time_point m_now;
};

/// Sends what the test says to whoever connects.
struct ScriptedServer {
    ScriptedServer() {
        listening = server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            socket = server.nextPendingConnection();
            if (onConnection)
                onConnection();
        });
    }
    [[nodiscard]] TimeServer Address() const { return {u"127.0.0.1"_qs, server.serverPort()}; }
    QTcpServer server;
    bool listening = false;
    QTcpSocket* socket = nullptr;
    std::function<void()> onConnection;
};

/// The time service that xinetd has built in.
class InternetServices final {
  public:
    InternetServices() {
        QTcpServer probe;
        QFile file(m_folder.filePath(u"xinetd.conf"_qs));
        if (!probe.listen(QHostAddress::LocalHost) || !file.open(QIODevice::WriteOnly))
            return;
        port = probe.serverPort();
        probe.close();
        file.write("service time\n{\n type = INTERNAL UNLISTED\n id = time-stream\n socket_type = stream\n"
                   " protocol = tcp\n wait = no\n bind = 127.0.0.1\n port = " +
                   QByteArray::number(port) + "\n}\n");
        file.close();
        m_process.start(u"/usr/sbin/xinetd"_qs,
                        {u"-dontfork"_qs, u"-f"_qs, file.fileName(), u"-filelog"_qs, m_folder.filePath(u"log"_qs),
                         u"-pidfile"_qs, m_folder.filePath(u"pid"_qs)});
    }
    ~InternetServices() {
        m_process.kill();
        m_process.waitForFinished();
    }
    [[nodiscard]] bool Answers() const {
        bool connected = false;
        for (int attempt = 0; attempt < 200 && !connected; ++attempt) {
            QTcpSocket socket;
            socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
            connected = socket.waitForConnected(1000);
            if (!connected)
                QTest::qWait(50);
        }
        return connected;
    }
    quint16 port = 0;

  private:
    QTemporaryDir m_folder;
    QProcess m_process;
};

/// Everything that a synchronisation said.
struct Outcomes {
    explicit Outcomes(ClockSync& sync) {
        QObject::connect(&sync, &ClockSync::Synchronised, &sync, [this] { said.append(u"set"_qs); });
        QObject::connect(&sync, &ClockSync::Ignored, &sync, [this] { said.append(u"ignored"_qs); });
        QObject::connect(&sync, &ClockSync::Failed, &sync, [this](const QString& reason) { said.append(reason); });
    }
    QStringList said;
};

} // namespace

class TestClockSync final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void convertsAnAnswer() {
        const auto converted = [](const char* hex, std::chrono::milliseconds roundTrip) {
            const auto time = TimeAnswer::Convert(QByteArray::fromHex(hex), roundTrip);
            return time ? asText(*time) : QString();
        };
        QCOMPARE(converted("e0000000", 800ms), u"2019-02-02T11:39:44Z"_qs);
        QCOMPARE(converted("e0000000ff", 1200ms), u"2019-02-02T11:39:45Z"_qs);
        QCOMPARE(converted("ffffffff", 0ms), u"2036-02-07T06:28:15Z"_qs);
        QCOMPARE(converted("29491c00", 0ms), u"1921-12-13T20:45:52Z"_qs);
        QCOMPARE(converted("29491bff", 0ms), QString());
        QCOMPARE(converted("e00000", 0ms), QString());
    }

    void setsTheTimeOfARealServer() {
        const InternetServices server;
        QVERIFY(server.Answers());
        ClockSync sync(m_systemClock, m_clock, m_texts, {u"localhost"_qs, server.port});
        Outcomes outcomes(sync);
        sync.Begin();
        QTRY_COMPARE_WITH_TIMEOUT(outcomes.said, QStringList(u"set"_qs), 20000);
        const auto error = std::chrono::abs(m_systemClock.set.back() - std::chrono::system_clock::now());
        QVERIFY(error < 60s);
    }

    void bearsWithServers_data() {
        QTest::addColumn<QList<QByteArray>>("parts");
        QTest::addColumn<bool>("closes");
        QTest::addColumn<QString>("outcome");
        const auto row = [](const char* name, const QList<QByteArray>& parts, bool closes, const QString& outcome) {
            QTest::newRow(name) << parts << closes << outcome;
        };
        const QByteArray half("\xf0\0", 2);
        const QByteArray rest("\0\0", 2);
        row("in two parts", {half, rest}, true, u"2027-08-06T09:04:01Z"_qs);
        row("2020", {QByteArray::fromHex("e1b65f80")}, true, u"2020-01-01T00:00:01Z"_qs);
        row("before 2020", {QByteArray::fromHex("e1b65f7e")}, true, m_texts[Text::TimeServerNonsense]);
        row("short", {half}, true, u"ignored"_qs);
        row("silent", {}, false, m_texts[Text::TimeServerSilent]);
        row("no end", {half, rest}, false, m_texts[Text::TimeServerSilent]);
        row("endless", QList<QByteArray>(100, QByteArray(1000, '\xe0')), false, m_texts[Text::TimeServerNonsense]);
    }
    void bearsWithServers() {
        QFETCH(QList<QByteArray>, parts);
        QFETCH(bool, closes);
        QFETCH(QString, outcome);
        ScriptedServer server;
        QVERIFY(server.listening);
        ClockSync sync(m_systemClock, m_clock, m_texts, server.Address(), 1s);
        Outcomes outcomes(sync);
        server.onConnection = [&] {
            for (const QByteArray& part : parts) {
                server.socket->write(part);
                server.socket->flush();
            }
            if (closes)
                server.socket->disconnectFromHost();
        };
        const bool sets = outcome.endsWith(u'Z');
        sync.Begin();
        QVERIFY(outcomes.said.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(outcomes.said, QStringList(sets ? u"set"_qs : outcome), 20000);
        QCOMPARE(m_systemClock.set.size(), std::size_t(sets ? 1 : 0));
        // The next one begins with nothing of this one, whatever is still on its way.
        server.onConnection = [&] {
            server.socket->write("\xf0\0\0\0", 4);
            server.socket->disconnectFromHost();
        };
        sync.Begin();
        QTRY_COMPARE_WITH_TIMEOUT(outcomes.said.size(), 2, 20000);
        QCOMPARE(outcomes.said.last(), u"set"_qs);
        QCOMPARE(asText(m_systemClock.set.back()), u"2027-08-06T09:04:01Z"_qs);
    }

    void tellsWhyTheClockIsNotSet() {
        ScriptedServer server;
        server.onConnection = [&] {
            server.socket->write("\xf0\0\0\0", 4);
            server.socket->disconnectFromHost();
        };
        m_systemClock.reason = u"Operation not permitted"_qs;
        ClockSync sync(m_systemClock, m_clock, m_texts, server.Address());
        Outcomes outcomes(sync);
        sync.Begin();
        QTRY_COMPARE(outcomes.said, QStringList(m_systemClock.reason));
    }

    void cleanup() { m_systemClock = FakeSystemClock(); }

  private:
    FakeSystemClock m_systemClock;
    SteppingClock m_clock;
    StringTable m_texts{Language::English};
};

QTEST_GUILESS_MAIN(TestClockSync)
#include "test_clocksync.moc"

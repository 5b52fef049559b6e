// The number that a time server sends, and servers that misbehave. No clock is set.
#include "ClockSync.h"
#include "Fakes.h"
#include "StringTable.h"
#include "Table.h"

#include <QDateTime>
#include <QTcpServer>
#include <QTest>

using namespace std::chrono_literals;

namespace {

const QString denied = u"Operation not permitted"_qs;

QString asText(std::chrono::sys_seconds time) {
    return QDateTime::fromSecsSinceEpoch(time.time_since_epoch().count(), Qt::UTC).toString(Qt::ISODate);
}

/// Sends these parts to each client.
struct TimeService : QTcpServer {
    TimeService() {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* client = nextPendingConnection();
            for (const QByteArray& part : parts) {
                client->write(part);
                client->flush();
            }
            if (closes)
                client->disconnectFromHost();
        });
    }
    QList<QByteArray> parts;
    bool closes = true;
};

} // namespace

class TestClockSync final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void synchronises_data() {
        const Table<QList<QByteArray>, bool, QString> row;
        row("in two parts", {m_half, m_rest}, true, m_time);
        row("latest, with more bytes", {QByteArray::fromHex("ffffffffff")}, true, u"2036-02-07T06:28:17Z"_qs);
        row("2020", {QByteArray::fromHex("e1b65f7e")}, true, u"2020-01-01T00:00:00Z"_qs);
        row("before 2020", {QByteArray::fromHex("e1b65f7d")}, true, m_texts[Text::TimeServerNonsense]);
        row("earliest", {QByteArray::fromHex("29491c00")}, true, m_texts[Text::TimeServerNonsense]);
        row("out of range", {QByteArray::fromHex("29491bff")}, true, u"ignored"_qs);
        row("short", {m_half}, true, u"ignored"_qs);
        row("refused by the system", {m_half, m_rest}, true, denied);
        row("not closed", {m_half, m_rest}, false, m_texts[Text::TimeServerSilent]);
        row("endless", QList<QByteArray>(100, QByteArray(1000, '\xe0')), false, m_texts[Text::TimeServerNonsense]);
    }
    void synchronises() {
        const auto [parts, closes, outcome] = Table<QList<QByteArray>, bool, QString>::Current();
        const bool timesOut = outcome == m_texts[Text::TimeServerSilent];
        TimeService server;
        server.parts = parts;
        server.closes = closes;
        FakeSystemClock system;
        FakeClock clock;
        clock.step = 3s; // the round trip: half of it is rounded to 2 s
        ClockSync sync(system, clock, m_texts, {u"127.0.0.1"_qs, server.serverPort()}, timesOut ? 100ms : 60s);
        QStringList said;
        connect(&sync, &ClockSync::Synchronised, this,
                [&] { said.append(asText(std::chrono::floor<std::chrono::seconds>(system.set.back()))); });
        connect(&sync, &ClockSync::Ignored, this, [&] { said.append(u"ignored"_qs); });
        connect(&sync, &ClockSync::Failed, this, [&](const QString& reason) { said.append(reason); });
        system.reason = outcome == denied ? denied : QString();
        sync.Begin();
        QCOMPARE(said, QStringList());
        QTRY_COMPARE_WITH_TIMEOUT(said, QStringList(outcome), 20000);
        QCOMPARE(system.set.empty(), !outcome.endsWith(u'Z') && outcome != denied);
        if (timesOut)
            return;
        // The next one uses nothing of this one, even if bytes of it are still arriving.
        server.parts = {m_half + m_rest};
        server.closes = true;
        system.reason.clear();
        sync.Begin();
        QTRY_COMPARE_WITH_TIMEOUT(said, (QStringList{outcome, m_time}), 20000);
    }

  private:
    const QByteArray m_half{"\xf0\0", 2};
    const QByteArray m_rest{"\0\0", 2};
    const QString m_time = u"2027-08-06T09:04:02Z"_qs;
    StringTable m_texts{Language::English};
};

QTEST_GUILESS_MAIN(TestClockSync)
#include "test_clocksync.moc"

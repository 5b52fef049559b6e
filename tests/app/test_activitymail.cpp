// Notifications of a whole program whose mail server takes its time.
#include "NameServerProcess.h"
#include "ProgramFixture.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace {

/// Takes connections and says nothing until it hangs up.
class SlowServer final {
  public:
    explicit SlowServer(const QHostAddress& address) {
        server.listen(address);
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            ++connections;
            present.append(server.nextPendingConnection());
        });
    }
    void HangUp() { present.takeFirst()->abort(); }
    /// Returns when every connection that was on its way has arrived: ours comes behind them.
    void Settle() {
        QTcpSocket last;
        const int before = connections;
        last.connectToHost(server.serverAddress(), server.serverPort());
        QTRY_VERIFY(connections > before && last.state() == QAbstractSocket::ConnectedState);
        present.takeLast()->abort();
        --connections;
    }
    QTcpServer server;
    QList<QTcpSocket*> present;
    int connections = 0;
};

struct World : ProgramFixture {
    explicit World(const Fields& more = {}, const QHostAddress& address = QHostAddress::LocalHost,
                   const Fields& second = {})
        : server(address) {
        Fields fields{{u"sendmail"_qs, u"1"_qs},
                      {u"UseSMTP"_qs, u"1"_qs},
                      {u"SMTPHost"_qs, u"127.0.0.1"_qs},
                      {u"sender"_qs, u"me@here.de"_qs},
                      {u"recipient"_qs, u"you@there.de"_qs}};
        fields.insert(more);
        Add(u"A"_qs, fields);
        fields.insert(second);
        Add(u"B"_qs, fields);
        const QString base = u"Postrelle/Settings/"_qs;
        settings->values[base + u"PersistentSettings"] = u"1"_qs;
        settings->values[base + u"RemotePort"] = QString::number(server.server.serverPort());
        settings->values[base + u"ConnectRetry"] = u"1"_qs;
        // What another activity's mail may have left there.
        settings->values[base + u"RemoteHost"] = u"127.0.0.1"_qs;
        settings->values[base + u"From"] = u"stranger@there.de"_qs;
        Start();
    }
    SlowServer server;
};

QString failureOf(const QString& recipient) {
    return u"E-Mail send to '" + recipient + u"' - Timeout occurred: The SMTP Host did not respond to the request";
}

} // namespace

class TestActivityMail final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void twoMailsOnTheirWayAndTheOthersWait() {
        NameServerProcess dns;
        QVERIFY(dns.Start());
        for (const QString& host : {u"127.0.0.1"_qs, QString()}) { // two domains with one server
            World world({{u"SMTPHost"_qs, host}, {u"recipient"_qs, u"you@dort.de"_qs}}, QHostAddress::LocalHost,
                        {{u"SMTPHost"_qs, host}, {u"recipient"_qs, u"you@fern.de"_qs}});
            world.names->known = {{{u"127.0.0.1"_qs, dns.port}}, QString()};
            for (const QString& name : {u"A"_qs, u"B"_qs, u"A"_qs, u"B"_qs})
                QVERIFY(world.program->RunNow(name).Succeeded());
            // Another record takes the name: it has nothing to do with these mails.
            world.program->File().Write(u"A"_qs, ActivityField::LogFile, world.Path(u"stranger.log"_qs));
            for (const int connections : {2, 3, 4, 4}) {
                QTRY_COMPARE(world.server.connections, connections);
                world.server.Settle();
                QCOMPARE(world.server.connections, connections);
                world.server.HangUp();
            }
            QTRY_VERIFY(!world.program->State().Running());
            QCOMPARE(world.Log(u"A"_qs).count(failureOf(u"you@dort.de"_qs)), 2);
            QCOMPARE(world.Log(u"B"_qs).count(failureOf(u"you@fern.de"_qs)), 2);
            QVERIFY(!world.Exists(u"stranger.log"_qs));
        }
        World unknown({{u"SMTPHost"_qs, QString()}, {u"recipient"_qs, u"you@anders.de"_qs}});
        unknown.names->known = {{{u"127.0.0.1"_qs, dns.port}}, QString()};
        QVERIFY(unknown.program->RunNow(u"A"_qs).Succeeded());
        QTRY_VERIFY(!unknown.program->State().Running());
        QVERIFY(unknown.Log(u"A"_qs).last().endsWith(u" - Invalid or Missing SMTP Host Name"));
    }

    void whatIsMissingIsNotTakenFromAnotherMail() {
        const auto reason = [](const QString& field, const QString& value) {
            World world({{field, value}});
            const bool succeeded = world.program->RunNow(u"A"_qs).Succeeded();
            const bool ended = QTest::qWaitFor([&] { return !world.program->State().Running(); });
            const QString line = world.Log(u"A"_qs).last();
            return succeeded && ended && world.server.connections == 0 ? line.section(u" - "_qs, 1) : u"?: "_qs + line;
        };
        const QString noAddress = u"Missing or Invalid Sender E-mail Address"_qs;
        QCOMPARE(reason(u"SMTPHost"_qs, {}), u"No DNS entries found, MX Query cannot contine."_qs);
        QCOMPARE(reason(u"SMTPHost"_qs, u"mail host"_qs), u"Invalid or Missing SMTP Host Name"_qs);
        QCOMPARE(reason(u"sender"_qs, {}), noAddress);
        QCOMPARE(reason(u"sender"_qs, u"me"_qs), noAddress);
    }

    void aServerGoneAtEachStep() {
        const QByteArrayList dialogue{"220 hi", "250 hello", "250 sender", "250 recipient", "354 go"};
        for (qsizetype steps = 0; steps <= dialogue.size(); ++steps) {
            World world({{u"subject"_qs, u"%copied% from %activity%"_qs},
                         {u"message"_qs, u"50%copied%%deleted%, %other%reason%%%activity% %SECONDS% %"_qs}});
            world.Write(u"src/f"_qs, "x");
            world.program->Options().MailVariables = steps == dialogue.size() ? 1 : 0;
            QVERIFY(world.program->RunNow(u"A"_qs).Succeeded());
            QTRY_VERIFY(!world.server.present.isEmpty());
            QTcpSocket& server = *world.server.present.first();
            for (const QByteArray& line : dialogue.first(steps)) {
                server.write(line + "\r\n");
                QTRY_VERIFY(server.peek(10'000).endsWith(line.startsWith("354") ? "\r\n.\r\n" : "\r\n"));
                const QByteArray told = server.readAll();
                if (line.startsWith("354")) {
                    const bool isFilledIn = steps == dialogue.size();
                    QVERIFY(told.contains(isFilledIn ? "\r\nSubject: 1 from A\r\n"
                                                     : "\r\nSubject: %copied% from %activity%\r\n"));
                    QVERIFY(told.contains(isFilledIn
                                              ? "\r\n5010, %otherdone%A %SECONDS% %"
                                              : "\r\n50%copied%%deleted%, %other%reason%%%activity% %SECONDS% %"));
                }
            }
            server.close();
            QTRY_VERIFY(!world.program->State().Running());
            const QString gone = u"E-Mail send to 'you@there.de' - Socket not Open"_qs;
            QCOMPARE(world.Log(u"A"_qs).last(), steps == 0 ? failureOf(u"you@there.de"_qs) : gone);
        }
    }

    void findsTheServer() {
        for (const QString& host : {u"localhost"_qs, u"::1"_qs, u"[::1]"_qs}) {
            World world({{u"SMTPHost"_qs, host}},
                        host == u"localhost" ? QHostAddress::LocalHost : QHostAddress::LocalHostIPv6);
            if (!world.server.server.isListening())
                QSKIP("this machine has no IPv6");
            QVERIFY(world.program->RunNow(u"A"_qs).Succeeded());
            QTRY_VERIFY2(!world.server.present.isEmpty(), qPrintable(host));
        }
    }

    void aServerThatNeverStopsTalking() {
        World world;
        QVERIFY(world.program->RunNow(u"A"_qs).Succeeded());
        QTRY_VERIFY(!world.server.present.isEmpty());
        QTcpSocket& server = *world.server.present.first();
        server.setSocketOption(QAbstractSocket::SendBufferSizeSocketOption, 65536);
        server.write(QByteArray("211 and so on\r\n").repeated(2'000'000));
        qint64 unread = 0;
        do { // until nothing is taken any more
            unread = server.bytesToWrite();
            QCoreApplication::processEvents();
            QCoreApplication::processEvents();
        } while (server.bytesToWrite() < unread);
        QVERIFY2(server.bytesToWrite() > 22'000'000, "all of it is read, held and looked at");
    }

    void theMachineStaysOnUntilTheMailHasGone() {
        World world({{u"runningmode"_qs, u"1"_qs}}, QHostAddress::LocalHost, {{u"activ"_qs, u"0"_qs}});
        Program& program = *world.program;
        program.Options().Shutdown = 1;
        program.Monitoring().ToggleMonitoring();
        world.Pass(std::chrono::seconds(15));
        QCOMPARE(world.Runs(u"A"_qs), 1);
        QTRY_VERIFY(!world.server.present.isEmpty());
        QVERIFY(program.Monitoring().IsOn());
        QCOMPARE(world.power->requests, 0);
        world.server.HangUp();
        QTRY_VERIFY(!program.State().Running());
        world.Pass(std::chrono::seconds(1));
        QVERIFY(!program.Monitoring().IsOn());
        QCOMPARE(world.power->requests, 1);
    }

    void theEndOfTheProgramDoesNotWaitForLong() {
        World world;
        for (int run = 0; run < 103; ++run)
            QVERIFY(world.program->RunNow(u"A"_qs).Succeeded());
        QTRY_VERIFY(!world.server.present.isEmpty());
        world.program->RequestEnd(std::chrono::seconds(0));
        QVERIFY(world.program->State().Running());
        QTRY_VERIFY(!world.program->State().Running());
        const QStringList log = world.Log(u"A"_qs);
        const QString mail = u"E-Mail send to 'you@there.de'"_qs;
        QCOMPARE(log.count(mail), 103);
        QCOMPARE(log.count(QString(mail + u" - Not sent: 100 later e-mails of this activity are waiting.")), 1);
        QCOMPARE(log.count(QString(mail + u" - Not sent: the program is closing.")), 100);
        QCOMPARE(log.last(2), QStringList(2, mail + u" - Socket not Open"));
    }
};

QTEST_GUILESS_MAIN(TestActivityMail)
#include "test_activitymail.moc"

// Notifications of a whole program whose mail server takes its time.
#include "ProgramFixture.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace {

/// Takes connections and says nothing until it is told to.
class SlowServer final {
  public:
    SlowServer() {
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            ++connections;
            present = server.nextPendingConnection();
        });
    }
    void HangUp() { std::exchange(present, nullptr)->abort(); }
    QTcpServer server;
    QTcpSocket* present = nullptr;
    int connections = 0;
};

struct World : ProgramFixture {
    explicit World(const Fields& more = {}) {
        Fields fields{{u"sendmail"_qs, u"1"_qs},
                      {u"UseSMTP"_qs, u"1"_qs},
                      {u"SMTPHost"_qs, u"127.0.0.1"_qs},
                      {u"sender"_qs, u"me@here.de"_qs},
                      {u"recipient"_qs, u"you@there.de"_qs}};
        fields.insert(more);
        Add(u"A"_qs, fields);
        const QString base = u"Postrelle/Settings/"_qs;
        settings->values[base + u"PersistentSettings"] = u"1"_qs;
        settings->values[base + u"RemotePort"] = QString::number(server.server.serverPort());
        settings->values[base + u"ConnectRetry"] = u"1"_qs;
        Start();
    }
    SlowServer server;
};

const QString failure =
    u"E-Mail send to 'you@there.de' - Timeout occurred: The SMTP Host did not respond to the request"_qs;

} // namespace

class TestActivityMail final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void oneMailOnItsWayAndOneWaiting() {
        World world;
        for (int run = 0; run < 4; ++run)
            QVERIFY(world.program->RunNow(u"A"_qs).Succeeded());
        for (const int connections : {1, 2}) {
            QTRY_VERIFY(world.server.present != nullptr);
            QTest::qWait(50);
            QCOMPARE(world.server.connections, connections);
            world.server.HangUp();
        }
        QTRY_VERIFY(!world.program->State().Running());
        QCOMPARE(world.server.connections, 2);
        QCOMPARE(world.Log(u"A"_qs).count(failure), 2);
        QCOMPARE(world.Log(u"A"_qs).count(u"E-Mail send to 'you@there.de'"_qs), 4);
    }

    void theMachineStaysOnUntilTheMailHasGone() {
        World world({{u"runningmode"_qs, u"1"_qs}});
        Program& program = *world.program;
        program.Options().Shutdown = 1;
        program.Monitoring().ToggleMonitoring();
        world.Pass(std::chrono::seconds(15));
        QCOMPARE(world.Runs(u"A"_qs), 1);
        QTRY_VERIFY(world.server.present != nullptr);
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
        QVERIFY(world.program->RunNow(u"A"_qs).Succeeded());
        QTRY_VERIFY(world.server.present != nullptr);
        world.program->RequestEnd();
        QVERIFY(world.program->State().Running());
        QTRY_VERIFY_WITH_TIMEOUT(!world.program->State().Running(), 20'000);
        QCOMPARE(world.Log(u"A"_qs).last(), u"E-Mail send to 'you@there.de' - Socket not Open"_qs);
    }
};

QTEST_GUILESS_MAIN(TestActivityMail)
#include "test_activitymail.moc"

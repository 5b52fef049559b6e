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

void notify(ProgramFixture& fixture, const SlowServer& server, const ProgramFixture::Fields& more = {}) {
    ProgramFixture::Fields fields{{u"sendmail"_qs, u"1"_qs},
                                  {u"UseSMTP"_qs, u"1"_qs},
                                  {u"SMTPHost"_qs, u"127.0.0.1"_qs},
                                  {u"sender"_qs, u"me@here.de"_qs},
                                  {u"recipient"_qs, u"you@there.de"_qs}};
    fields.insert(more);
    fixture.Add(u"A"_qs, fields);
    const QString base = u"Postrelle/Settings/"_qs;
    fixture.settings->values[base + u"PersistentSettings"] = u"1"_qs;
    fixture.settings->values[base + u"RemotePort"] = QString::number(server.server.serverPort());
    fixture.settings->values[base + u"ConnectRetry"] = u"1"_qs;
}

const QString failure =
    u"E-Mail send to 'you@there.de' - Timeout occurred: The SMTP Host did not respond to the request"_qs;

} // namespace

class TestActivityMail final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void oneMailOnItsWayAndOneWaiting() {
        SlowServer server;
        ProgramFixture fixture;
        notify(fixture, server);
        Program& program = fixture.Start();
        for (int run = 0; run < 4; ++run)
            QVERIFY(program.RunNow(u"A"_qs).Succeeded());
        QTRY_VERIFY(server.present != nullptr);
        QTest::qWait(50);
        QCOMPARE(server.connections, 1);
        server.HangUp();
        QTRY_COMPARE(server.connections, 2);
        QTRY_VERIFY(server.present != nullptr);
        server.HangUp();
        QTRY_VERIFY(!program.State().Running());
        QCOMPARE(server.connections, 2);
        QCOMPARE(fixture.Log(u"A"_qs).count(failure), 2);
        QCOMPARE(fixture.Log(u"A"_qs).count(u"E-Mail send to 'you@there.de'"_qs), 4);
    }

    void theMachineStaysOnUntilTheMailHasGone() {
        SlowServer server;
        ProgramFixture fixture;
        notify(fixture, server, {{u"runningmode"_qs, u"1"_qs}});
        Program& program = fixture.Start();
        program.Options().Shutdown = 1;
        program.Monitoring().ToggleMonitoring();
        fixture.Pass(std::chrono::seconds(15));
        QCOMPARE(fixture.Runs(u"A"_qs), 1);
        QTRY_VERIFY(server.present != nullptr);
        QVERIFY(program.Monitoring().IsOn());
        QCOMPARE(fixture.power->requests, 0);
        server.HangUp();
        QTRY_VERIFY(!program.State().Running());
        fixture.Pass(std::chrono::seconds(1));
        QVERIFY(!program.Monitoring().IsOn());
        QCOMPARE(fixture.power->requests, 1);
    }

    void theEndOfTheProgramDoesNotWaitForLong() {
        SlowServer server;
        ProgramFixture fixture;
        notify(fixture, server);
        Program& program = fixture.Start();
        QVERIFY(program.RunNow(u"A"_qs).Succeeded());
        QTRY_VERIFY(server.present != nullptr);
        program.RequestEnd();
        QVERIFY(program.State().Running());
        QTRY_VERIFY_WITH_TIMEOUT(!program.State().Running(), 20'000);
        QCOMPARE(fixture.Log(u"A"_qs).last(), failure.section(u" - "_qs, 0, 0) + u" - Socket not Open");
    }
};

QTEST_GUILESS_MAIN(TestActivityMail)
#include "test_activitymail.moc"

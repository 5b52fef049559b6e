#include "ProgramFixture.h"

#include <QSignalSpy>

using namespace std::chrono_literals;

namespace {
const QString A = QStringLiteral("A");
QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}
} // namespace

class TestMonitoring final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "UTC"); }

    void refusedStartsLeaveMonitoringOff_data() {
        QTest::addColumn<int>("activities");
        QTest::addColumn<bool>("locked");
        QTest::addColumn<QString>("message");
        QTest::newRow("empty list") << 0 << false << "You must add at least one activity to start monitoring.";
        QTest::newRow("none checked") << 1 << false
                                      << "You have not selected a directory to monitor. You can't start monitoring "
                                         "without a valid directory.";
        QTest::newRow("another engine") << 2 << true << QString();
    }
    void refusedStartsLeaveMonitoringOff() {
        QFETCH(int, activities);
        QFETCH(bool, locked);
        QFETCH(QString, message);
        ProgramFixture fixture;
        if (activities > 0)
            fixture.Add(A, {{text("activ"), text("0")}});
        if (activities > 1)
            fixture.Add(text("B"));
        fixture.Write(text("app.log"), "");
        Program& program = fixture.Start();
        const std::unique_ptr<HeldLock> other = locked ? program.LockFile() : nullptr;
        QSignalSpy marks(&program.Monitoring(), &MonitoringController::StateChanged);
        program.Monitoring().ToggleMonitoring();
        QVERIFY(!program.Monitoring().IsOn());
        QCOMPARE(marks.size(), 2);
        QCOMPARE(fixture.prompter.shown.size(), 1U);
        QCOMPARE(fixture.prompter.shown[0].title, text("Start monitoring"));
        QCOMPARE(fixture.prompter.shown[0].icon, MessageIcon::Exclamation);
        if (!message.isEmpty())
            QCOMPARE(fixture.prompter.shown[0].text, message);
        QCOMPARE(fixture.Read(text("app.log")), QByteArray());
        QVERIFY(!program.Timers().tmrMonitoring.Enabled());
    }

    void startAndStopWriteExactlyTheirLines() {
        ProgramFixture fixture;
        fixture.clock->now = std::chrono::system_clock::time_point(
            std::chrono::sys_days(std::chrono::year(2026) / 11 / 15) + 5h + 34min + 48s);
        fixture.Add(A);
        fixture.Add(text("Off"), {{text("activ"), text("0")}});
        fixture.Add(text("B"), {{text("logfile"), text("  ")}});
        fixture.Write(text("app.log"), "");
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        QCOMPARE(fixture.Status(A), text("Activ ..."));
        QCOMPARE(fixture.Status(text("Off")), text("idle"));
        program.Monitoring().ToggleMonitoring();
        const QByteArray stamp = "-> [15.11.2026 05:34:48] ";
        QCOMPARE(fixture.Read(text("app.log")), stamp + "Monitoring in progress for this activities: 'A; B'\r\n" +
                                                    stamp + "Monitoring finished! \r\n\r\n\r\n");
        const QByteArray own = "\r\n" + stamp + "Start monitoring ...\r\n" + stamp + "Monitoring finished! \r\n";
        QCOMPARE(fixture.Read(text("A.log")), own);
        QCOMPARE(fixture.Read(text("Off.log")), own);
        QCOMPARE(fixture.Status(A), text("idle"));
        QVERIFY(!program.Timers().tmrMonitoring.Enabled());
        QVERIFY(fixture.locks->held.empty());
    }

    void theApplicationLogIsNeverCreated() {
        ProgramFixture fixture;
        fixture.Add(A);
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        program.Monitoring().ToggleMonitoring();
        QVERIFY(!fixture.Exists(text("app.log")));
    }

    void aUsersTickBringsBackWhatWasTakenOut() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("type"), text("1")}, {text("intervall"), text("2")}, {text("runningmode"), text("1")}});
        fixture.Add(text("keepsOn"), {{text("intervall"), text("59")}});
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        fixture.Pass(600s);
        QCOMPARE(fixture.Runs(A), 1);
        const QModelIndex box = program.List().index(0, 0);
        QVERIFY(program.List().setData(box, Qt::Checked, Qt::CheckStateRole));
        fixture.Pass(61min); // the counter comes round to the mark
        QCOMPARE(fixture.Runs(A), 2);
    }

    void aFileChangedByAnotherProgramIsNotOverwritten() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("type"), text("4")}, {text("triggertime"), text("00:00")}});
        fixture.clock->now =
            std::chrono::system_clock::time_point(std::chrono::sys_days(std::chrono::year(2026) / 3 / 1) - 10s);
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        const QByteArray foreign = "<?xml version=\"1.0\"?><items><Other/></items>";
        fixture.Write(text("Kalvenor.kvd"), foreign);
        fixture.Pass(70s);
        QCOMPARE(fixture.Read(text("Kalvenor.kvd")), foreign);
        QCOMPARE(program.File().Read(A, "activ"), text("0"));
        QCOMPARE(fixture.Log(A).count(text("Checking starts ...")), 1);
    }
};

QTEST_GUILESS_MAIN(TestMonitoring)
#include "test_monitoring.moc"

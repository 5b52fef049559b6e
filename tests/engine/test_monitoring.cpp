#include "ProgramFixture.h"
#include "SystemWorld.h"
#include "Table.h"

#include <QSignalSpy>

using namespace std::chrono_literals;

namespace {
const QString A = u"A"_qs;
const QString B = u"B"_qs;
const QString appLog = u"app.log"_qs;
const QString activityFile = u"Kalvenor.kvd"_qs;
} // namespace

class TestMonitoring final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void refusedStartsLeaveMonitoringOff_data() {
        const Table<int, bool, Text> row;
        row("empty list", 0, true, Text::NothingToMonitor);
        row("none checked", 1, true, Text::NoDirectoryToMonitor);
        row("another engine", 2, true, Text::MonitoredElsewhere);
        row("no lock can be made", 2, false, Text::NoLockPossible);
    }
    void refusedStartsLeaveMonitoringOff() {
        const auto [activities, canBeLocked, message] = Table<int, bool, Text>::Current();
        ProgramFixture fixture;
        if (activities > 0)
            fixture.Add(A, {{u"activ"_qs, u"0"_qs}});
        if (activities > 1)
            fixture.Add(B);
        fixture.Write(appLog, "");
        fixture.Write(u"src/f"_qs, "x");
        Program& program = fixture.Start();
        EngineLock elsewhere(*fixture.locks, *fixture.services.ownFiles);
        LockRefusal ignored{};
        const EngineLock::Token other = elsewhere.Take(program.File().CurrentPath(), ignored);
        fixture.locks->canBeMade = canBeLocked;
        QSignalSpy marks(&program.Monitoring(), &MonitoringController::StateChanged);
        program.Monitoring().ToggleMonitoring();
        QVERIFY(!program.Monitoring().IsOn());
        QCOMPARE(marks.size(), 2);
        QCOMPARE(fixture.prompter.shown.size(), 1U);
        QCOMPARE(fixture.prompter.shown[0].text, fixture.texts[message]);
        QCOMPARE(fixture.Read(appLog), QByteArray());
        QVERIFY(!program.Timers().tmrMonitoring.Enabled());
        if (activities < 2)
            return;
        QVERIFY(program.RunNow(B).interrupted && !fixture.Exists(u"dst/f"_qs));
        const Text refusal = canBeLocked ? Text::RunRefused : message;
        QCOMPARE(fixture.prompter.Told().last(),
                 u"Start activity: "_qs + fixture.texts[refusal].replace(u"%1"_qs, program.File().CurrentPath()));
    }

    void noSecondEngineUnderAnyNameOfTheFile() {
        ProgramFixture fixture;
        fixture.Add(A);
        Program& program = fixture.Start();
        EngineLock elsewhere(*fixture.locks, *fixture.services.ownFiles);
        LockRefusal refusal{};
        const auto isFree = [&](const QString& name) { return elsewhere.Take(fixture.Path(name), refusal) != nullptr; };
        const QString soft = u"soft.kvd"_qs;
        const QString hard = u"hard.kvd"_qs;
        const QString newer = u"newer.kvd"_qs;
        const auto link = [&](const QString& name) {
            fs::create_hard_link(fixture.Native(activityFile), fixture.Native(name));
        };
        link(hard);
        const bool isLink = SystemWorld::Link(fixture.Native(activityFile), fixture.Native(soft));
        program.Monitoring().ToggleMonitoring();
        EngineLock::Token run = program.LockForRunNow(); // shared, not refused
        QVERIFY(run && !isFree(activityFile) && (!isLink || !isFree(soft)) && !isFree(hard));
        QVERIFY(refusal == LockRefusal::HeldElsewhere);
        program.File().Save(); // makes another inode of it
        link(newer);
        QVERIFY(!isFree(newer) && !isFree(hard));
        program.Monitoring().ToggleMonitoring();
        QVERIFY2(!isFree(activityFile) && !isFree(hard), "a run is on the stack still");
        run.reset();
        QVERIFY(isFree(activityFile) && isFree(hard) && fixture.locks->held.empty());
    }

    void startAndStopWriteExactlyTheirLines() {
        ProgramFixture fixture;
        fixture.clock->now = std::chrono::sys_days(std::chrono::year(2026) / 11 / 15) + 5h + 34min + 48s;
        fixture.Add(A);
        fixture.Add(u"Off"_qs, {{u"activ"_qs, u"0"_qs}});
        fixture.Add(B, {{u"logfile"_qs, u"  "_qs}});
        fixture.Write(appLog, "");
        Program& program = fixture.StartMonitoring();
        QCOMPARE(fixture.Status(A), u"Activ ..."_qs);
        QCOMPARE(fixture.Status(u"Off"_qs), u"idle"_qs);
        program.Monitoring().ToggleMonitoring();
        const QByteArray stamp = "-> [15.11.2026 05:34:48] ";
        QCOMPARE(fixture.Read(appLog), stamp + "Monitoring in progress for this activities: 'A; B'\r\n" + stamp +
                                           "Monitoring finished! \r\n\r\n\r\n");
        const QByteArray own = "\r\n" + stamp + "Start monitoring ...\r\n" + stamp + "Monitoring finished! \r\n";
        QCOMPARE(fixture.Read(u"A.log"_qs), own);
        QCOMPARE(fixture.Read(u"Off.log"_qs), own);
        QCOMPARE(fixture.Status(A), u"idle"_qs);
        QVERIFY(!program.Timers().tmrMonitoring.Enabled());
        QVERIFY(fixture.locks->held.empty());
    }

    void aFileChangedByAnotherProgramIsNotOverwritten() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"type"_qs, u"4"_qs}, {u"triggertime"_qs, u"00:00"_qs}});
        fixture.clock->now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1) - 10s;
        Program& program = fixture.StartMonitoring();
        const QByteArray foreign = "<?xml version=\"1.0\"?><items><Other/></items>";
        fixture.Write(activityFile, foreign);
        fixture.Pass(70s);
        QCOMPARE(fixture.Read(activityFile), foreign);
        QCOMPARE(program.File().Read(A, ActivityField::Active), u"0"_qs);
        QCOMPARE(fixture.Log(A).count(u"Checking starts ..."_qs), 1);
    }
};

QTEST_GUILESS_MAIN(TestMonitoring)
#include "test_monitoring.moc"

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

    /// Planned at midnight; the event comes 30 s later and lasts ten minutes.
    void missedTimesRunOnceLate_data() {
        const Table<QString, QString, int> row;
        const QString daily = u"type=4 daily=1 triggertime=00:05"_qs;
        const QString everyOther = u"type=1 intervall=2"_qs;
        for (const char* event : {"killed", "closed", "slept", "jumped"})
            row(event, daily, event, 1);
        row("once at a time", "type=4 triggertime=00:05", "killed", 1);
        row("once on a date", "type=3 triggerdate=01.03.2026 triggerdatetime=00:05", "killed", 1);
        row("the same, slept", "type=3 triggerdate=01.03.2026 triggerdatetime=00:05", "slept", 1);
        row("interval, killed", everyOther, "killed", 1);
        row("interval, slept", everyOther, "slept", 1);
        row("interval in rounds", everyOther, "rounds", 0);
        row("below a minute", "type=0 intervall=50", "killed", 0);
        row("stopped", daily, "stopped", 0);
        row("interval, stopped", everyOther, "stopped", 0);
        row("option off", daily, "off", 0);
        row("taken back", daily, "off meanwhile", 0);
        row("edited", daily, "edited", 0);
        row("another action", "type=4 triggertime=00:05", "mirrors", 0);
        row("damaged file", daily, "damaged", 0);
        row("later", "type=4 daily=1 triggertime=00:30", "killed", 0);
        row("never planned", "type=3 triggerdate=01.03.2019 triggerdatetime=00:05", "killed", 0);
        row("a clock that was wrong", "type=3 triggerdate=05.03.2026 triggerdatetime=00:05", "wrong clock", 0);
        row("run that closing ended", "type=4 triggertime=00:00", "closed inside", 2);
    }
    void missedTimesRunOnceLate() {
        const auto [fields, event, runs] = Table<QString, QString, int>::Current();
        ProgramFixture fixture;
        fixture.clock->now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);
        fixture.locks->place = fixture.Native(u"state"_qs);
        fixture.Folder(u"state"_qs);
        fixture.Add(A, fields);
        fixture.Add(B, u"type=4 daily=1 triggertime=23:00"_qs);
        fixture.Write(u"src/f"_qs, "x");
        const auto begin = [&](bool late) {
            fixture.program->Options().CountByTheClock = event == u"rounds" ? 0 : 1;
            fixture.program->Options().RunLate = late ? 1 : 0;
            fixture.program->Monitoring().ToggleMonitoring();
        };
        const auto close = [&] {
            fixture.program->RequestEnd();
            fixture.program->Monitoring().StopMonitoring();
        };
        Program* program = &fixture.Start();
        begin(event != u"off");
        if (event == u"closed inside")
            fixture.pump->onYield = [&] {
                if (program->Monitoring().IsOn() && !fixture.Log(A).filter(u"Checking starts"_qs).isEmpty())
                    close();
            };
        fixture.Pass(30s);
        fixture.pump->onYield = nullptr;
        if (event == u"off meanwhile") {
            program->Options().RunLate = 0;
            fixture.Pass(1s);
        }
        if (event == u"stopped")
            program->Monitoring().ToggleMonitoring();
        if (event == u"closed")
            close();
        if (event == u"slept") {
            fixture.clock->Sleep(10min);
        } else if (event == u"jumped") {
            fixture.clock->Set(10min);
        } else if (event == u"wrong clock") {
            fixture.clock->Set(240h);
        } else {
            fixture.program.reset();
            fixture.clock->Advance(10min);
            QByteArray activities = fixture.Read(activityFile);
            if (event == u"edited")
                activities.replace("00:05", "00:06");
            if (event == u"mirrors")
                activities.replace("<action>0", "<action>3");
            fixture.Write(activityFile, activities);
            if (event == u"damaged")
                for (const QFileInfo& file : QDir(fixture.Path(u"state"_qs)).entryInfoList({u"*.plans"_qs}))
                    fixture.Write(u"state/"_qs + file.fileName(),
                                  fixture.Read(u"state/"_qs + file.fileName()).chopped(9));
            program = &fixture.Build();
            program->List().Refill();
            program->AllowTicks();
            begin(true);
        }
        fixture.Pass(5s);
        const QStringList log = fixture.Log(A);
        QCOMPARE(log.filter(u"Checking starts ..."_qs).size(), runs);
        QCOMPARE(log.filter(u", run late."_qs).size(), std::min(runs, 1));
        const bool isOver = runs > 0 && !fields.contains(u"daily") && fields.contains(u"trigger");
        QCOMPARE(program->File().Read(A, ActivityField::Active), isOver ? u"0"_qs : u"1"_qs);
    }

    /// A daily 02:30 on the days on which that does not exist, and exists twice.
    void summerTimeLosesAndDoublesNothing() {
        if (!SystemWorld::CanMake("time zone rules"))
            QSKIP("the system knows one rule for summer time");
        for (const bool isSpring : {true, false})
            for (const bool late : {true, false}) {
                ProgramFixture fixture;
                qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
                fixture.clock->now =
                    isSpring ? std::chrono::sys_days(std::chrono::year(2026) / 3 / 29) + 50min
                             : std::chrono::sys_days(std::chrono::year(2026) / 10 / 25) + 20min; // local 01:50, 02:20
                fixture.Add(A, u"type=4 daily=1 triggertime=02:30"_qs);
                fixture.Start().Options().RunLate = late ? 1 : 0;
                fixture.program->Monitoring().ToggleMonitoring();
                fixture.Pass(3h);
                const int minutes = isSpring ? (late ? 1 : 0) : (late ? 1 : 2);
                QCOMPARE(fixture.Log(A).filter(u"Checking starts ..."_qs).size(), 60 * minutes);
                QVERIFY(fixture.Log(A).filter(u"run late"_qs).isEmpty());
            }
        qputenv("TZ", "UTC");
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

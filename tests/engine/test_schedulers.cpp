#include "ProgramFixture.h"

using namespace std::chrono_literals;

namespace {
const QString A = u"A"_qs;
const std::pair<QString, QString> noLog{u"logfile"_qs, QString()};

/// With an activity that is never due and keeps monitoring on, from midnight of the first of March 2026.
struct Spring : ProgramFixture {
    Spring() {
        clock->now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);
        Add(u"keepsOn"_qs, {{u"intervall"_qs, u"59"_qs}});
    }
};
} // namespace

class TestSchedulers final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "UTC"); }

    void intervals_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("interval");
        QTest::addColumn<int>("seconds");
        QTest::addColumn<int>("runs");
        const auto row = [](const char* name, const char* type, const char* interval, int seconds, int runs) {
            QTest::newRow(name) << QString::fromLatin1(type) << QString::fromLatin1(interval) << seconds << runs;
        };
        row("10 s: not before tick 11", "0", "10", 10, 0);
        row("10 s: on tick 11", "0", "10", 11, 1);
        row("59 s is never due", "0", "59", 300, 0);
        row("60 s runs at once, then every 59", "0", "60", 60, 2);
        row("no number", "0", "ten", 120, 0);
        row("2 min", "1", "2", 120, 1);
        row("2 min, 10 min long", "1", "2", 600, 5);
        row("70 min wraps to 10", "1", "70", 600, 1);
        row("1 h, a day and more", "2", "1", 30 * 3600, 24);
        row("unknown type", "9", "1", 120, 0);
    }
    void intervals() {
        QFETCH(QString, type);
        QFETCH(QString, interval);
        QFETCH(int, seconds);
        ProgramFixture fixture;
        fixture.Add(A, {{u"type"_qs, type}, {u"intervall"_qs, interval}, noLog});
        fixture.Start().Monitoring().ToggleMonitoring();
        fixture.Pass(std::chrono::seconds(seconds));
        QTEST(fixture.Runs(A), "runs");
    }

    void onceOnlyRunsOnceAndEndsMonitoring() {
        for (const bool shutdown : {false, true}) {
            ProgramFixture fixture;
            fixture.Add(
                A,
                {{u"type"_qs, shutdown ? u"1"_qs : u"0"_qs}, {u"intervall"_qs, u"2"_qs}, {u"runningmode"_qs, u"1"_qs}});
            fixture.Write(u"src/f"_qs, "x");
            fixture.Write(u"app.log"_qs, "");
            Program& program = fixture.Start();
            program.Options().Shutdown = shutdown ? 1 : 0;
            fixture.power->succeeds = false;
            bool copiedBeforeTheEnd = false;
            fixture.prompter.onAsk = [&](const Message&) { copiedBeforeTheEnd = fixture.Exists(u"dst/f"_qs); };
            program.Monitoring().ToggleMonitoring();
            fixture.Pass(600s);
            QVERIFY(!program.Monitoring().IsOn());
            QCOMPARE(fixture.Runs(A), 1);
            QVERIFY(copiedBeforeTheEnd);
            QCOMPARE(fixture.prompter.shown.size(), 1U);
            QCOMPARE(fixture.prompter.shown[0].text, u"All activities idle, finished monitoring."_qs);
            QCOMPARE(fixture.power->requests, shutdown ? 1 : 0);
            const QByteArray log = fixture.Read(u"app.log"_qs);
            QCOMPARE(log.contains("Computer after last activity 'A' shutted down."), shutdown);
            QCOMPARE(log.contains("The computer could not be switched off."), shutdown);
            QCOMPARE(program.File().Read(A, "activ"), u"1"_qs); // the choice on disk is the user's
            program.List().Refill();
            QVERIFY(!program.List().IsChecked(0));
        }
    }

    void timeOfDay_data() {
        QTest::addColumn<QString>("trigger");
        QTest::addColumn<QString>("daily");
        QTest::addColumn<int>("runs");
        const auto row = [](const char* name, const char* trigger, const char* daily, int runs) {
            QTest::newRow(name) << QString::fromLatin1(trigger) << QString::fromLatin1(daily) << runs;
        };
        row("once", "12:00", "0", 1);
        row("missing daily means once", "12:00", "", 1);
        row("daily: every tick of the minute, two days", "12:00", "1", 120);
        row("no leading zero never matches", "8:00", "1", 0);
        row("empty mask", ":", "1", 0);
    }
    void timeOfDay() {
        QFETCH(QString, trigger);
        QFETCH(QString, daily);
        Spring fixture;
        fixture.Add(A, {{u"type"_qs, u"4"_qs}, {u"triggertime"_qs, trigger}, {u"daily"_qs, daily}, noLog});
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        int runs = 0;
        QObject::connect(&program.List(), &ActivityList::dataChanged, this, [&](const QModelIndex& index) {
            if (index.column() == ActivityList::LastRun)
                ++runs;
        });
        for (int day = 0; day < 2; ++day) {
            fixture.clock->Advance(11h + 58min);
            fixture.Pass(5min);
            fixture.clock->Advance(11h + 57min);
        }
        QTEST(runs, "runs");
        const bool finished = runs == 1;
        QCOMPARE(program.File().Read(A, "activ"), finished ? u"0"_qs : u"1"_qs);
        QCOMPARE(fixture.Read(u"Kalvenor.kvd"_qs).contains("<activ>0</activ>"), finished);
    }

    void onceAtADate() {
        Spring fixture;
        const QString past = u"Past"_qs;
        for (const auto& [name, date] : {std::pair(A, u"02.03.2026"_qs), std::pair(past, u"28.02.2026"_qs)})
            fixture.Add(name, {{u"type"_qs, u"3"_qs}, {u"triggerdate"_qs, date}, {u"triggerdatetime"_qs, u"06:30"_qs}});
        fixture.Write(u"src/f"_qs, "x");
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        fixture.clock->Advance(6h + 29min);
        fixture.Pass(3min);
        QVERIFY(!fixture.Exists(u"dst/f"_qs));
        fixture.clock->Advance(24h - 3min);
        fixture.Pass(3min);
        QVERIFY(fixture.Exists(u"dst/f"_qs));
        QCOMPARE(program.File().Read(A, "activ"), u"0"_qs);
        QCOMPARE(program.File().Read(past, "activ"), u"1"_qs);
        QCOMPARE(fixture.Log(A).last(), u"Monitoring 'A stopped."_qs);
        QCOMPARE(fixture.Log(A).count(u"Checking starts ..."_qs), 1);
    }

    void noTickBeforeThePermission() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"intervall"_qs, u"2"_qs}});
        fixture.Start();
        fixture.program = std::make_unique<Program>(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        fixture.program->List().Refill();
        fixture.program->Monitoring().ToggleMonitoring();
        fixture.Pass(20s);
        QCOMPARE(fixture.Runs(A), 0);
        fixture.program->AllowTicks();
        fixture.Pass(20s);
        QVERIFY(fixture.Runs(A) > 0);
    }

    void aTickInsideARunServesOtherActivitiesAndNeverItself() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"intervall"_qs, u"2"_qs}, noLog});
        fixture.Add(u"M"_qs, {{u"type"_qs, u"1"_qs}, {u"intervall"_qs, u"2"_qs}, noLog});
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        int deepest = 0;
        fixture.pump->onYield = [&] {
            deepest = std::max(deepest, program.State().depth);
            if (program.State().depth == 1)
                fixture.Pass(121s);
        };
        fixture.Pass(3s);
        fixture.pump->onYield = nullptr;
        QVERIFY(fixture.Runs(u"M"_qs) >= 1);
        QCOMPARE(deepest, 2);
    }

    void anActivityDeletedInsideItsRunTouchesNothingMore() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"intervall"_qs, u"2"_qs}});
        fixture.Write(u"src/new"_qs, "x");
        fixture.Write(u"dst/old"_qs, "y");
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        fixture.pump->onYield = [&] {
            program.Document().DeleteNode(u"/items/A"_qs);
            program.File().Save();
            program.List().Refill();
        };
        fixture.Pass(5s);
        QVERIFY(fixture.Exists(u"dst/old"_qs));
        QVERIFY(!fixture.Exists(u"dst/new"_qs));
    }
};

QTEST_GUILESS_MAIN(TestSchedulers)
#include "test_schedulers.moc"

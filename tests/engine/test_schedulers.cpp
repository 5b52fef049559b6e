#include "ProgramFixture.h"

using namespace std::chrono_literals;

namespace {
const QString A = QStringLiteral("A");
QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}
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
        QTest::newRow("10 s: not before tick 11") << "0"
                                                  << "10" << 10 << 0;
        QTest::newRow("10 s: on tick 11") << "0"
                                          << "10" << 11 << 1;
        QTest::newRow("59 s is never due") << "0"
                                           << "59" << 300 << 0;
        QTest::newRow("60 s runs at once, then every 59") << "0"
                                                          << "60" << 60 << 2;
        QTest::newRow("no number") << "0"
                                   << "ten" << 120 << 0;
        QTest::newRow("2 min") << "1"
                               << "2" << 120 << 1;
        QTest::newRow("2 min, 10 min long") << "1"
                                            << "2" << 600 << 5;
        QTest::newRow("70 min wraps to 10") << "1"
                                            << "70" << 600 << 1;
        QTest::newRow("1 h, a day and more") << "2"
                                             << "1" << 30 * 3600 << 24;
        QTest::newRow("unknown type") << "9"
                                      << "1" << 120 << 0;
    }
    void intervals() {
        QFETCH(QString, type);
        QFETCH(QString, interval);
        QFETCH(int, seconds);
        ProgramFixture fixture;
        fixture.Add(A, {{text("type"), type}, {text("intervall"), interval}, {text("logfile"), QString()}});
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        QVERIFY(program.Monitoring().IsOn());
        fixture.Pass(std::chrono::seconds(seconds));
        QTEST(fixture.Runs(A), "runs");
    }

    void aRecordWithoutMarkIsNeverDue() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("activ"), text("0")}});
        fixture.Add(text("B"));
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        fixture.program->List().SetChecked(A, true); // too late for a first mark
        fixture.Pass(120s);
        QCOMPARE(fixture.Runs(A), 0);
        QVERIFY(fixture.Runs(text("B")) > 5);
    }

    void onceOnlyRunsOnceAndEndsMonitoring_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("shutdown");
        QTest::newRow("seconds") << "0" << false;
        QTest::newRow("minutes") << "1" << false;
        QTest::newRow("seconds, power off") << "0" << true;
    }
    void onceOnlyRunsOnceAndEndsMonitoring() {
        QFETCH(QString, type);
        QFETCH(bool, shutdown);
        ProgramFixture fixture;
        fixture.Add(A, {{text("type"), type}, {text("intervall"), text("2")}, {text("runningmode"), text("1")}});
        fixture.Write(text("src/f"), "x");
        fixture.Write(text("app.log"), "");
        Program& program = fixture.Start();
        program.Options().Shutdown = shutdown ? 1 : 0;
        bool copiedBeforePowerOff = false;
        fixture.prompter.onAsk = [&](const Message&) { copiedBeforePowerOff = fixture.Exists(text("dst/f")); };
        program.Monitoring().ToggleMonitoring();
        fixture.Pass(600s);
        QVERIFY(!program.Monitoring().IsOn());
        QCOMPARE(fixture.Runs(A), 1);
        QVERIFY(copiedBeforePowerOff);
        QCOMPARE(fixture.prompter.shown.size(), 1U);
        QCOMPARE(fixture.prompter.shown[0].text, text("All activities idle, finished monitoring."));
        QCOMPARE(fixture.prompter.shown[0].title, text("Monitoring finished! "));
        QCOMPARE(fixture.power->requests, shutdown ? 1 : 0);
        QCOMPARE(fixture.Read(text("app.log")).contains("Computer after last activity 'A' shutted down."), shutdown);
        QCOMPARE(program.File().Read(A, "activ"), text("1")); // the choice on disk is the user's
        program.List().Refill();
        QVERIFY(!program.List().IsChecked(0));
    }

    void timeOfDay_data() {
        QTest::addColumn<QString>("trigger");
        QTest::addColumn<QString>("daily");
        QTest::addColumn<int>("runs");
        QTest::newRow("once") << "12:00"
                              << "0" << 1;
        QTest::newRow("missing daily means once") << "12:00"
                                                  << "" << 1;
        QTest::newRow("daily: every tick of the minute, two days") << "12:00"
                                                                   << "1" << 120;
        QTest::newRow("no leading zero never matches") << "8:00"
                                                       << "1" << 0;
        QTest::newRow("empty mask") << ":"
                                    << "1" << 0;
    }
    void timeOfDay() {
        QFETCH(QString, trigger);
        QFETCH(QString, daily);
        ProgramFixture fixture;
        fixture.clock->now =
            std::chrono::system_clock::time_point(std::chrono::sys_days(std::chrono::year(2026) / 3 / 1));
        fixture.Add(A, {{text("type"), text("4")},
                        {text("triggertime"), trigger},
                        {text("daily"), daily},
                        {text("logfile"), QString()}});
        fixture.Add(text("keepsOn"), {{text("intervall"), text("59")}});
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
        QCOMPARE(program.File().Read(A, "activ"), text(finished ? "0" : "1"));
        QCOMPARE(fixture.Read(text("Kalvenor.kvd")).contains("<activ>0</activ>"), finished);
    }

    void onceAtADate() {
        ProgramFixture fixture;
        fixture.clock->now =
            std::chrono::system_clock::time_point(std::chrono::sys_days(std::chrono::year(2026) / 3 / 1));
        fixture.Add(A, {{text("type"), text("3")},
                        {text("triggerdate"), text("02.03.2026")},
                        {text("triggerdatetime"), text("06:30")}});
        fixture.Add(text("Past"), {{text("type"), text("3")},
                                   {text("triggerdate"), text("28.02.2026")},
                                   {text("triggerdatetime"), text("06:30")}});
        fixture.Add(text("keepsOn"), {{text("intervall"), text("59")}});
        fixture.Write(text("src/f"), "x");
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        fixture.clock->Advance(6h + 29min);
        fixture.Pass(3min);
        QVERIFY(!fixture.Exists(text("dst/f")));
        fixture.clock->Advance(24h - 3min);
        fixture.Pass(3min);
        QVERIFY(fixture.Exists(text("dst/f")));
        QCOMPARE(program.File().Read(A, "activ"), text("0"));
        QCOMPARE(program.File().Read(text("Past"), "activ"), text("1"));
        QCOMPARE(fixture.Log(A).last(), text("Monitoring 'A stopped."));
        QCOMPARE(fixture.Log(A).count(text("Checking starts ...")), 1);
    }

    void noTickBeforeThePermissionOrDuringARefill() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("intervall"), text("2")}});
        Program& first = fixture.Start();
        fixture.program = std::make_unique<Program>(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
        Q_UNUSED(first);
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
        fixture.Add(A, {{text("intervall"), text("2")}, {text("logfile"), QString()}});
        fixture.Add(text("M"),
                    {{text("type"), text("1")}, {text("intervall"), text("2")}, {text("logfile"), QString()}});
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
        QVERIFY(fixture.Runs(text("M")) >= 1);
        QCOMPARE(deepest, 2);
    }

    void anActivityDeletedInsideItsRunTouchesNothingMore() {
        ProgramFixture fixture;
        fixture.Add(A, {{text("action"), text("3")}, {text("intervall"), text("2")}});
        fixture.Write(text("src/new"), "x");
        fixture.Write(text("dst/old"), "y");
        Program& program = fixture.Start();
        program.Monitoring().ToggleMonitoring();
        fixture.pump->onYield = [&] {
            program.Document().DeleteNode(text("/items/A"));
            program.File().Save();
            program.List().Refill();
        };
        fixture.Pass(5s);
        QVERIFY(fixture.Exists(text("dst/old")));
        QVERIFY(!fixture.Exists(text("dst/new")));
    }
};

QTEST_GUILESS_MAIN(TestSchedulers)
#include "test_schedulers.moc"

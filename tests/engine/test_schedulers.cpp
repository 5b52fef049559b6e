#include "NextRuns.h"
#include "ProgramFixture.h"
#include "SystemWorld.h"
#include "Table.h"
#include "modTriggerDate.h"

#include <QLocale>

using namespace std::chrono_literals;

namespace {
const QString A = u"A"_qs;

/// With an activity that is never due and keeps monitoring on, from midnight of the first of March 2026.
struct Spring : ProgramFixture {
    Spring() {
        clock->now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);
        Add(u"keepsOn"_qs, u"intervall=59"_qs);
    }
};
} // namespace

class TestSchedulers final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void runsWhenItIsDue_data() {
        // fields: NAME=VALUE, separated by blanks
        const Table<QString, std::chrono::seconds, int> row;
        row("10 s: not before tick 11", "type=0 intervall=10", 10s, 0);
        row("10 s: on tick 11", "type=0 intervall=10", 11s, 1);
        row("59 s is never due", "type=0 intervall=59", 300s, 0);
        row("60 s runs at once, then every 59", "type=0 intervall=60", 60s, 2);
        row("no number", "type=0 intervall=ten", 120s, 0);
        row("2 min, 10 min long", "type=1 intervall=2", 10min, 5);
        row("70 min wraps to 10", "type=1 intervall=70", 10min, 1);
        row("1 h, a day and more", "type=2 intervall=1", 30h, 24);
        row("unknown type", "type=9 intervall=1", 120s, 0);
        row("once", "type=4 triggertime=00:05 daily=0", 10min, 1);
        row("missing daily means once", "type=4 triggertime=00:05", 10min, 1);
        row("daily: every tick of the minute", "type=4 triggertime=00:05 daily=1", 10min, 60);
        row("no leading zero never matches", "type=4 triggertime=0:05 daily=1", 10min, 0);
        row("empty mask", "type=4 triggertime=: daily=1", 10min, 0);
        row("at its date", "type=3 triggerdate=01.03.2026 triggerdatetime=00:05", 10min, 1);
        row("tomorrow", "type=3 triggerdate=02.03.2026 triggerdatetime=00:05", 10min, 0);
        row("yesterday", "type=3 triggerdate=28.02.2026 triggerdatetime=00:05", 10min, 0);
    }
    void runsWhenItIsDue() {
        const auto [fields, span, runs] = Table<QString, std::chrono::seconds, int>::Current();
        Spring fixture;
        fixture.Add(A, fields);
        Program& program = fixture.StartMonitoring();
        fixture.Pass(span);
        QCOMPARE(fixture.Log(A).count(u"Checking starts ..."_qs), runs);
        const bool isOver = runs == 1 && fields.contains(u"trigger");
        QCOMPARE(program.File().Read(A, ActivityField::Active), isOver ? u"0"_qs : u"1"_qs);
        QCOMPARE(fixture.Read(u"Kalvenor.kvd"_qs).contains("<activ>0</activ>"), isOver);
        QVERIFY(!isOver || fixture.Log(A).last() == u"Monitoring 'A stopped.");
        QVERIFY(!fixture.Exists(u"app.log"_qs)); // never created
    }

    /// Whatever the interval, and from whatever place in the round: it runs when that was foretold, or never.
    void whatIsForetoldComesTrue_data() {
        const Table<QString, std::chrono::seconds, int> row;
        row("seconds", "0", 1s, 125);
        row("minutes", "1", 60s, 125);
        row("hours", "2", 3600s, 40);
    }
    void whatIsForetoldComesTrue() {
        const auto [type, step, ticks] = Table<QString, std::chrono::seconds, int>::Current();
        Spring fixture;
        for (int interval = 1; interval <= 122; interval += interval == 64 ? 50 : 1)
            if (type != u"1" || (interval != 60 && interval != 61)) // in minute 60 they hold up the others' counter
                fixture.Add(u"I%1"_qs.arg(interval), u"logfile= type=%1 intervall=%2"_qs.arg(type).arg(interval));
        Program& program = fixture.StartMonitoring();
        ActivityList& list = program.List();
        for (int tick = 1; tick <= ticks; ++tick) {
            std::vector<std::optional<Moments::Second>> foretold;
            QList<int> runs;
            for (int row = 1; row < list.Rows(); ++row) {
                foretold.push_back(program.Next().Of(row).at);
                runs.append(fixture.Runs(list.NameAt(row)));
            }
            fixture.Pass(step, step);
            for (int row = 1; row < list.Rows(); ++row) {
                const bool hasRun = fixture.Runs(list.NameAt(row)) > runs[row - 1];
                const auto at = foretold[static_cast<std::size_t>(row) - 1];
                QVERIFY2(hasRun == (at == fixture.clock->now), qPrintable(list.NameAt(row)));
                // To be kept until then.
                const NextRun next = program.Next().Of(row);
                QVERIFY2(hasRun || next.at == at, qPrintable(list.NameAt(row)));
                QVERIFY(next.at || next.reason == NeverRuns::Stalls);
            }
            if (tick % 7 == 0) // another place in the round
                list.Readmit(list.NameAt(1 + tick % (list.Rows() - 1)));
        }
    }

    void intervalsByTheClock_data() {
        // What happens at second 15, and the seconds in which A runs within two minutes.
        const Table<QString, QString, bool, QString> row;
        row("7 s", "type=0 intervall=7", "", false, "7 14 21 28 35 42 49 56 63 70 77 84 91 98 105 112 119");
        row("59 s is due", "type=0 intervall=59", "", false, "59 118");
        row("1 min", "type=1 intervall=1", "", false, "60 120");
        row("no number", "type=0 intervall=ten", "", false, "");
        row("none", "type=0 intervall=0", "", true, "");
        row("clock set forward", "type=0 intervall=20", "forward", false, "20 40 60 80 100 120");
        row("clock set back", "type=0 intervall=20", "back", true, "20 40 60 80 100 120");
        row("slept", "type=0 intervall=20", "sleep", false, "60 80 100 120");
        row("slept, made up for once", "type=0 intervall=20", "sleep", true, "51 60 80 100 120");
        row("long run", "type=0 intervall=10", "long run", false, "41 50 60 70 80 90 100 110 120");
        row("long run, made up for once", "type=0 intervall=10", "long run", true, "41 42 50 60 70 80 90 100 110 120");
        row("ticked again", "type=0 intervall=20", "tick", false, "36 56 76 96 116");
        row("refilled", "type=0 intervall=20", "refill", false, "20 40 60 80 100 120");
        row("new interval", "type=0 intervall=20", "interval", false, "46 76 106");
        row("once only", "type=0 intervall=20 runningmode=1", "", true, "20");
        row("option off, then on", "type=0 intervall=30", "option", false, "46 76 106");
        row("from now on", "type=0 intervall=30", "late option", false, "31 61 91");
    }
    void intervalsByTheClock() {
        const auto [fields, event, late, seconds] = Table<QString, QString, bool, QString>::Current();
        Spring fixture;
        fixture.Add(A, fields);
        Program& program = fixture.Start();
        program.Options().CountByTheClock = event == u"late option" ? 0 : 1;
        program.Options().RunLate = late ? 1 : 0;
        program.Monitoring().ToggleMonitoring();
        const auto begun = fixture.clock->ElapsedNow();
        const auto second = [&] {
            return std::chrono::floor<std::chrono::seconds>(fixture.clock->ElapsedNow() - begun).count();
        };
        QStringList runs; // the second in which each ended
        const auto pass = [&](std::chrono::seconds span) {
            for (auto passed = 0s; passed < span; passed += 1s) {
                const qsizetype before = fixture.Log(A).filter(u"Checking finished"_qs).size();
                fixture.Pass(1s);
                if (fixture.Log(A).filter(u"Checking finished"_qs).size() > before)
                    runs.append(QString::number(second()));
            }
        };
        bool wasLong = false;
        fixture.pump->onYield = [&] {
            if (event != u"long run" || wasLong || program.State().Progress().activity != A)
                return;
            wasLong = true;
            fixture.clock->Advance(31s);
        };
        const auto setOption = [&](std::uint8_t on) {
            program.Options().CountByTheClock = on;
            pass(1s);
        };
        pass(15s);
        if (event == u"forward" || event == u"back")
            fixture.clock->Set(event == u"back" ? -100h : 100h);
        if (event == u"sleep")
            fixture.clock->Sleep(35s);
        if (event == u"tick")
            for (const Qt::CheckState state : {Qt::Unchecked, Qt::Checked})
                QVERIFY(program.List().setData(program.List().index(1, 0), state, Qt::CheckStateRole));
        if (event == u"refill")
            program.List().Refill();
        if (event == u"interval")
            program.File().Write(A, ActivityField::Interval, u"30"_qs);
        if (event == u"option")
            setOption(0);
        if (event == u"option" || event == u"late option")
            setOption(1);
        while (second() < 120)
            pass(1s);
        QCOMPARE(runs.join(u' '), seconds.isNull() ? u""_qs : seconds);
        const bool isLate = late && (event == u"sleep" || event == u"long run");
        QCOMPARE(fixture.Log(A).filter(u"Missed at 01.03.2026 00:00:"_qs).size(), isLate ? 1 : 0);
    }

    void triggerDates() {
        const auto read = [](const QString& text, const QString& locale = u"de_DE"_qs) {
            return modTriggerDate::Read(text, QLocale(locale)).toString(u"d.M.yyyy"_qs);
        };
        const QString day = u"3.4.2026"_qs;
        for (const QString& text : {u"03.04.2026"_qs, u"2026-04-03"_qs})
            QCOMPARE(read(text), day);
        for (const QString& text : {day, u"04/03/2026"_qs})
            QCOMPARE(read(text, u"en_US"_qs), day);
        QCOMPARE(read(u"4/3/2026"_qs, u"C"_qs), day);
        QCOMPARE(read(u"03/04/2026"_qs, u"en_GB"_qs), day);
        for (const QString& none : {u"03.04.26"_qs, u"31.02.2026"_qs, u"tomorrow"_qs, u"  .  .    "_qs})
            QVERIFY2(read(none).isEmpty(), qPrintable(none));
    }

    /// Ticks keep copies of the records, and whoever changes one must not have to say so.
    void everyChangeCountsAtTheNextTick() {
        ProgramFixture fixture;
        fixture.Add(A, u"intervall=2 logfile="_qs);
        fixture.Add(A, u"intervall=4 logfile="_qs); // a namesake, shown but never run
        Program& program = fixture.StartMonitoring();
        const auto runsAfter = [&](const std::function<void()>& change) {
            change();
            const int before = fixture.Runs(A);
            fixture.Pass(std::chrono::minutes(2));
            return fixture.Runs(A) - before;
        };
        QVERIFY(runsAfter([] {}) > 2);
        QCOMPARE(fixture.Status(A), fixture.texts[Text::Active]); // its namesake must not make it idle
        QCOMPARE(runsAfter([&] { program.Document().WriteNode(u"/items/A/activ"_qs, u"0"_qs); }), 0);
        QVERIFY(runsAfter([&] { program.File().Write(A, ActivityField::Active, u"1"_qs); }) > 2);
        QCOMPARE(runsAfter([&] { program.Document().WriteNode(u"/items/A[1]/type"_qs, u"9"_qs); }), 0);
    }

    void daysOfTicksLeaveNothingBehind() {
        ProgramFixture fixture;
        fixture.clock->now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);
        fixture.SetOption("StopIfFolderNotExist", u"0"_qs);
        for (int i = 0; i < 300; ++i)
            fixture.Add(u"N%1"_qs.arg(i), u"type=%1 intervall=40 daily=1 triggertime=%2 sourcedir=%3 logfile="_qs
                                              .arg(i % 20 == 0 ? i / 20 % 3 : 4)
                                              .arg(QTime(i % 24, i % 12 * 5).toString(u"hh:mm"_qs),
                                                   fixture.Path(i % 7 == 0 ? u"none"_qs : u"src"_qs)));
        fixture.Write(u"src/f"_qs, "x");
        fixture.Start().Options().ReadRegistry();
        fixture.program->Monitoring().ToggleMonitoring();
        const auto days = [&](int count) { fixture.Pass(std::chrono::hours(24 * count), std::chrono::minutes(5)); };
        days(1);
        const SystemWorld::Holdings before;
        const int runs = fixture.Runs(u"N8"_qs);
        days(1);
        const SystemWorld::Holdings after;
        QVERIFY(fixture.Runs(u"N8"_qs) > runs && fixture.Runs(u"N7"_qs) == 0);
        QCOMPARE(after.handles, before.handles);
        QVERIFY2(after.bytes < before.bytes + 30'000, qPrintable(QString::number(after.bytes - before.bytes)));
    }

    void onceOnlyRunsOnceAndEndsMonitoring() {
        for (const QString& type : {u"0"_qs, u"1"_qs}) {
            ProgramFixture fixture;
            fixture.Add(A, u"intervall=2 runningmode=1 type="_qs + type);
            fixture.Write(u"src/f"_qs, "x");
            Program& program = fixture.Start();
            bool isCopied = false;
            fixture.prompter.onAsk = [&](const Message&) { isCopied = fixture.Exists(u"dst/f"_qs); };
            program.Monitoring().ToggleMonitoring();
            fixture.Pass(600s);
            QVERIFY(!program.Monitoring().IsOn() && isCopied && fixture.power->requests == 0);
            QCOMPARE(fixture.Runs(A), 1);
            QCOMPARE(fixture.prompter.Told().join(u'|').section(u": "_qs, 1),
                     u"All activities idle, finished monitoring."_qs);
            QCOMPARE(program.File().Read(A, ActivityField::Active), u"1"_qs); // the choice on disk is the user's
            program.List().Refill();
            QVERIFY(!program.List().IsChecked(0));
        }
    }

    /// The machine goes off only after a run of this session whose end cleared the last box.
    void powerOffFollowsARunOnly_data() {
        const Table<QString, bool, int> row;
        row("one-time run", "run", true, 1);
        row("started again before", "restart", false, 0);
        row("a run has begun meanwhile", "busy", true, 0);
        row("own untick", "untick", true, 0);
        row("missing directory", "missing", true, 0);
        row("all switched off in the file", "refill", true, 0);
        row("failed load", "damaged", false, 0);
    }
    void powerOffFollowsARunOnly() {
        const auto [end, isOver, requests] = Table<QString, bool, int>::Current();
        ProgramFixture fixture;
        fixture.clock->now = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1);
        const bool isLater = end == u"untick" || end == u"refill" || end == u"damaged";
        fixture.Add(A, u"type=4 triggertime="_qs + (isLater ? u"12:00" : u"00:00"));
        fixture.Write(u"app.log"_qs, "");
        fixture.power->succeeds = false;
        Program& program = fixture.Start();
        program.Options().Shutdown = 1;
        program.Monitoring().ToggleMonitoring();
        const QByteArray whole = fixture.Read(u"Kalvenor.kvd"_qs);
        fixture.prompter.onAsk = [&](const Message& message) {
            if (message.countdown.count() == 0)
                return;
            QVERIFY(!program.Monitoring().IsOn() && fixture.power->requests == 0);
            if (end == u"busy")
                program.State().MailBegan();
            if (end == u"restart" &&
                program.List().setData(program.List().index(0, 0), Qt::Checked, Qt::CheckStateRole))
                program.Monitoring().ToggleMonitoring();
        };
        if (end == u"untick")
            QVERIFY(program.List().setData(program.List().index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
        if (end == u"missing")
            QVERIFY(QDir(fixture.Path(u"src"_qs)).removeRecursively());
        if (end == u"refill" || end == u"damaged") {
            fixture.Write(u"Kalvenor.kvd"_qs, end == u"refill" ? QByteArray(whole).replace("<activ>1", "<activ>0")
                                                               : whole.left(whole.size() / 2));
            program.List().Refill();
        }
        fixture.Pass(2s);
        QCOMPARE(program.Monitoring().IsOn(), !isOver);
        QCOMPARE(fixture.power->requests, requests);
        const bool isTold = fixture.prompter.Told().join(u'|').contains(fixture.texts[Text::AllIdle]);
        QCOMPARE(isTold, isOver);
        const QByteArray log = fixture.Read(u"app.log"_qs);
        QVERIFY(requests == 0 || log.contains("Computer after last activity 'A' shutted down."));
        QCOMPARE(log.contains("The computer could not be switched off."), requests > 0);
        if (end != u"damaged")
            return;
        // The file is whole again, and nobody is there to refresh the list.
        fixture.Write(u"Kalvenor.kvd"_qs, whole);
        fixture.Pass(12h + 60s);
        QCOMPARE(fixture.Log(A).count(u"Checking starts ..."_qs), 1);
    }

    /// What ends the first of two runs early leaves both to be done.
    void anInterruptedRunConsumesNothing_data() {
        const Table<bool, QString> row;
        for (const bool isClosed : {false, true})
            for (const char* type : {"0", "1", "2", "3", "4"})
                row.Add(isClosed, type);
    }
    void anInterruptedRunConsumesNothing() {
        const auto [isClosed, type] = Table<bool, QString>::Current();
        Spring fixture;
        const QString second = u"Second"_qs;
        for (const QString& name : {A, second})
            fixture.Add(name, u"action=1 intervall=2 runningmode=1 triggertime=00:00 triggerdate=01.03.2026 "
                              "triggerdatetime=00:00 type="_qs +
                                  type);
        fixture.Write(u"src/f"_qs, "x");
        Program& program = fixture.StartMonitoring();
        fixture.pump->onYield = [&] {
            if (isClosed)
                program.RequestEnd();
            else if (program.Monitoring().IsOn())
                program.Monitoring().StopMonitoring();
        };
        fixture.Pass(2h + 60s);
        QVERIFY(!fixture.Log(second).contains(u"Checking starts ..."_qs));
        // A run that went to its end has moved the file; one that was ended early has not, and is still to be done.
        const bool isDone = !fixture.Exists(u"src/f"_qs);
        QVERIFY(!isClosed || !isDone);
        for (const QString& name : {A, second}) {
            const bool isOver = isDone && name == A;
            QCOMPARE(program.File().Read(name, ActivityField::Active) == u"0", isOver && type.toInt() > 2);
            QCOMPARE(program.List().IsChecked(*program.List().RowOf(name)), !isOver);
            QVERIFY(isOver || !program.List().IsTakenOut(name));
        }
    }

    void anAppointmentPutOffDuringItsRunStands() {
        Spring fixture;
        fixture.Add(A, u"type=4 triggertime=00:00"_qs);
        Program& program = fixture.StartMonitoring();
        fixture.pump->onYield = [&] { program.File().Write(A, ActivityField::TriggerTime, u"12:00"_qs); };
        fixture.Pass(5s);
        QCOMPARE(program.File().Read(A, ActivityField::Active), u"1"_qs);
    }

    /// Taken out, then brought back: ticked, with a mark, and due again.
    void whatIsBroughtBackRunsAgain_data() {
        const Table<QString, bool> row;
        for (const bool isRefilled : {false, true})
            for (const char* way : {"restart", "tick", "edit"})
                row.Add(way, isRefilled);
    }
    void whatIsBroughtBackRunsAgain() {
        const auto [way, isRefilled] = Table<QString, bool>::Current();
        Spring fixture;
        const QString off = u"Off"_qs;
        const QString missing = u"Missing"_qs;
        fixture.Add(A, u"intervall=2 runningmode=1"_qs);
        fixture.Add(missing, u"type=4 daily=1 triggertime=00:00 sourcedir="_qs + fixture.Path(u"gone"_qs));
        fixture.Add(off, u"activ=0"_qs);
        fixture.Write(u"app.log"_qs, "");
        Program& program = fixture.Start();
        ActivityList& list = program.List();
        program.Monitoring().ToggleMonitoring();
        fixture.Pass(5s);
        list.TakeOut(off);
        QVERIFY(fixture.Runs(A) == 1 && list.IsTakenOut(missing));
        QDir().mkdir(fixture.Path(u"gone"_qs));
        const auto runs = [&](const QString& name) { return fixture.Log(name).count(u"Checking starts ..."_qs); };
        const qsizetype before = runs(missing);
        for (const QString& name : {A, missing}) {
            if (way == u"tick")
                QVERIFY(list.setData(list.index(*list.RowOf(name), 0), Qt::Checked, Qt::CheckStateRole));
            if (way == u"edit")
                list.Readmit(name);
        }
        if (way == u"restart") {
            program.Monitoring().ToggleMonitoring();
            program.Monitoring().ToggleMonitoring();
            QVERIFY(fixture.Read(u"app.log"_qs).contains("'keepsOn; A; Missing'"));
        }
        if (isRefilled)
            list.Refill();
        for (const QString& name : {A, missing})
            QVERIFY(list.IsChecked(*list.RowOf(name)));
        QVERIFY(!list.IsChecked(*list.RowOf(off)));
        fixture.Pass(20s);
        QCOMPARE(runs(A), 2);
        QVERIFY(runs(missing) > before && list.IsChecked(*list.RowOf(missing)));
    }

    void aNameGivenTwiceRunsOnce() {
        Spring fixture;
        for (int given = 0; given < 2; ++given)
            fixture.Add(A, u"type=1 intervall=2"_qs);
        fixture.Write(u"app.log"_qs, "");
        fixture.StartMonitoring();
        QVERIFY(fixture.Read(u"app.log"_qs).contains("'keepsOn; A'"));
        fixture.Pass(121s);
        QCOMPARE(fixture.Log(A).count(u"Checking starts ..."_qs), 1);
    }

    void aChangedTimeZoneIsSeen() {
        Spring fixture;
        fixture.Add(A, u"type=4 triggertime=05:00"_qs);
        fixture.StartMonitoring();
        qputenv("TZ", "XXX-5");
        fixture.Pass(2s);
        qputenv("TZ", "UTC");
        fixture.Pass(2s);
        QCOMPARE(fixture.Log(A).count(u"Checking starts ..."_qs), 1);
    }

    void theEndIsToldAfterTheTick() {
        ProgramFixture fixture;
        fixture.Add(A, u"intervall=2 runningmode=1"_qs);
        Program& program = fixture.StartMonitoring();
        qsizetype runs = 0;
        fixture.prompter.onAsk = [&](const Message&) {
            if (fixture.prompter.shown.size() > 1)
                return;
            program.Monitoring().ToggleMonitoring(); // from the tray, while the box is open
            fixture.Pass(10s);
            runs = fixture.Log(A).count(u"Checking starts ..."_qs);
        };
        fixture.Pass(10s);
        QCOMPARE(runs, 2);
    }

    void aTickInsideARunServesOtherActivitiesAndNeverItself() {
        ProgramFixture fixture;
        fixture.Add(A, u"intervall=2 logfile="_qs);
        fixture.Add(u"M"_qs, u"type=1 intervall=2 logfile="_qs);
        Program& program = fixture.StartMonitoring();
        int deepest = 0;
        fixture.pump->onYield = [&] {
            deepest = std::max(deepest, program.State().Depth());
            if (program.State().Depth() == 1)
                fixture.Pass(121s);
        };
        fixture.Pass(3s);
        fixture.pump->onYield = nullptr;
        QVERIFY(fixture.Runs(u"M"_qs) >= 1);
        QCOMPARE(deepest, 2);
    }
};

QTEST_GUILESS_MAIN(TestSchedulers)
#include "test_schedulers.moc"

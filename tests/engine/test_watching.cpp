#include "ProgramFixture.h"
#include "Table.h"

using namespace std::chrono_literals;

namespace {
const QString A = u"A"_qs;
const QString src = u"src"_qs;

/// With an activity that is due every day, at a time when every file of the test was left alone for 100 s, except those
/// that look younger.
struct Watching : ProgramFixture {
    Watching() {
        clock->now = std::chrono::system_clock::now() + 100s;
        Add(u"keepsOn"_qs, u"intervall=59"_qs);
    }
    void WriteYoung(const QString& name, const QByteArray& bytes = "young") {
        Write(name, bytes, std::chrono::system_clock::to_time_t(clock->now) - 5);
    }
    FolderWatch::News& News() { return watches->news[Native(src)]; }
    void Change(const QString& name) { News().changed.insert(Native(name)); }
    int Checked() const { return static_cast<int>(Log(A).count(u"Checking starts ..."_qs)); }
};
} // namespace

// Files that are still being written, and runs because something has changed.
class TestWatching final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aFileBeingWrittenIsLeft_data() {
        const Table<QString, QString> row; // action, where the file is
        for (const char* const action : {"0", "1", "3"})
            for (const char* const place : {"f", "there/f", "new/f", "new/deep/f"})
                row.Add(action, place);
    }
    void aFileBeingWrittenIsLeft() {
        const auto [action, place] = Table<QString, QString>::Current();
        Watching fixture;
        fixture.Add(A, {{u"action"_qs, action}, {u"settleseconds"_qs, u"60"_qs}});
        for (const char* const folder : {"", "there/", "new/", "new/deep/"})
            fixture.Write(u"src/"_qs + QLatin1String(folder) + u"old"_qs, "old");
        fixture.Write(u"dst/there/f"_qs, "former", 1'600'000'000);
        fixture.WriteYoung(u"src/"_qs + place);
        Program& program = fixture.Start();

        const RunPlan plan = program.Preview(A);
        QVERIFY(std::none_of(plan.acts.begin(), plan.acts.end(), [&](const PlannedAct& act) {
            return act.deed != Deed::LeaveAlone && act.path == fixture.Path(u"src/"_qs + place);
        }));
        QVERIFY(program.RunNow(A).Succeeded());
        QCOMPARE(fixture.Read(u"src/"_qs + place), "young");
        QCOMPARE(fixture.Read(u"dst/there/old"_qs), "old");
        QCOMPARE(fixture.Read(u"dst/new/deep/old"_qs), "old");
        QCOMPARE(fixture.Exists(u"dst/"_qs + place), place == u"there/f");
        QVERIFY(fixture.Log(A).contains(u"'~/src/"_qs + place +
                                        u"' was changed less than 60 seconds ago and is left for a later run."_qs));

        fixture.clock->Advance(60s);
        QVERIFY(program.RunNow(A).Succeeded());
        QCOMPARE(fixture.Read(u"dst/"_qs + place), "young");
        QCOMPARE(fixture.Exists(u"src/"_qs + place), action != u"1");
        QCOMPARE(fixture.Exists(u"src/new"_qs), action != u"1");
        QVERIFY(!fixture.Entries(u"dst/new"_qs).join(u' ').contains(u".kalvenor"_qs)); // nothing is left to finish
    }

    // A clock that differs from the disk's must not keep a file back for ever.
    void aTimeFarAheadIsNoRecentChange() {
        Watching fixture;
        fixture.Add(A, u"settleseconds=60"_qs);
        fixture.Write(u"src/f"_qs, "ahead", std::chrono::system_clock::to_time_t(fixture.clock->now) + 3600);
        QVERIFY(fixture.Start().RunNow(A).Succeeded());
        QCOMPARE(fixture.Read(u"dst/f"_qs), "ahead");
    }

    void anAppointmentWaitsForItsFiles_data() {
        const Table<QString, bool> row; // and whether that was its last run
        row("date", "type=3 triggerdate=%1 triggerdatetime=%2 settleseconds=120", true);
        row("time", "type=4 triggertime=%2 daily=0 settleseconds=120", true);
        row("every day", "type=4 triggertime=%2 daily=1 settleseconds=120", false);
        row("once only", "type=0 intervall=2 runningmode=1 settleseconds=120", true);
    }
    void anAppointmentWaitsForItsFiles() {
        const auto [fields, isLast] = Table<QString, bool>::Current();
        Watching fixture;
        const QDateTime now = QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(fixture.clock->now));
        QString record = fields;
        record.replace(u"%1"_qs, now.addSecs(2).toString(u"dd.MM.yyyy"_qs));
        record.replace(u"%2"_qs, now.addSecs(2).toString(u"HH:mm"_qs));
        fixture.Add(A, record);
        fixture.WriteYoung(u"src/f"_qs);
        Program& program = fixture.StartMonitoring();
        fixture.Pass(70s);
        QVERIFY(fixture.Checked() > 0);
        QVERIFY(program.List().IsChecked(*program.List().RowOf(A)));
        QVERIFY(!fixture.Exists(u"dst/f"_qs));
        fixture.Pass(300s);
        QCOMPARE(fixture.Read(u"dst/f"_qs), "young");
        QCOMPARE(program.List().IsChecked(*program.List().RowOf(A)), !isLast);
        QCOMPARE(program.File().Read(A, ActivityField::Active),
                 isLast && fields.contains(u"trigger") ? u"0"_qs : u"1"_qs);
    }

    void runsWhenSomethingChanges_data() {
        // steps, one a second: "f": this file changes; "*": anything may have changed; ".": nothing; a number: so many
        // runs up to now
        const Table<QString, QString, QString> row; // and how the log explains the last run
        row("watching begins with a run", "settleseconds=0", "* . . 1 . . . 1",
            "Something may have changed in '~/src'.");
        row("not at once", "settleseconds=0", "f f f 0 . . 1", "");
        row("not before it has settled", "settleseconds=4", "f . . . 0 . . 1", "");
        row("not put off for ever", "settleseconds=0", "f f f f f f f f f 0 f f f 1", "");
        row("its log", "settleseconds=0", "../A.log . . . 0 f . . 1", "'~/src/f' has changed.");
        row("the other's log", "settleseconds=0", "../keepsOn.log . . . 0", "");
        row("the program's files", "settleseconds=0", "../Kalvenor.kvd . . . 0", "");
        row("not of its kind", "extensions=txt", "f . . . 0 f.txt . . 1", "");
        row("not with a date", "type=3 triggerdate=01.01.2100 triggerdatetime=00:00", "f . . . 0", "");
        row("every day", "type=4 triggertime=99:99 daily=1", "f . . . 1", "");
        row("once a day", "type=4 triggertime=99:99 daily=0", "f . . . 0", "");
        row("once only", "runningmode=1", "f . . . 1 f . . . 1", "");
    }
    void runsWhenSomethingChanges() {
        const auto [fields, steps, line] = Table<QString, QString, QString>::Current();
        Watching fixture;
        fixture.Add(A, u"type=2 intervall=24 watch=1 "_qs + fields);
        fixture.StartMonitoring();
        fixture.Pass(2s);
        for (const QString& step : steps.split(u' ')) {
            bool isCount = false;
            if (const int count = step.toInt(&isCount); isCount) {
                QCOMPARE(fixture.Checked(), count);
                continue;
            }
            if (step == u"*")
                fixture.News().isAnything = true;
            else if (step != u".")
                fixture.News().changed.insert(fixture.Native(u"src/"_qs + step).lexically_normal());
            fixture.Pass(1s);
        }
        const QStringList log = fixture.Log(A);
        QVERIFY(line.isEmpty() || log.value(log.lastIndexOf(u"Checking starts ..."_qs) - 1) == line);
    }

    void whatItWatches() {
        Watching fixture;
        fixture.Add(A, u"type=2 watch=1 action=3"_qs);
        fixture.StartMonitoring();
        fixture.Pass(2s);
        QCOMPARE(fixture.watches->orders.size(), std::size_t{1});
        const WatchOrder& order = fixture.watches->orders.front();
        QCOMPARE(order.folder, fixture.Native(src));
        QVERIFY(order.hasSubfolders && order.tellsRemovals);
        QVERIFY(std::count(order.leftOut.begin(), order.leftOut.end(), fixture.Native(u"dst"_qs)) == 1);
        fixture.program->File().Write(A, ActivityField::SourceDir, fixture.Folder(u"other"_qs));
        fixture.Pass(2s);
        QCOMPARE(fixture.watches->orders.back().folder, fixture.Native(u"other"_qs));
    }

    // The schedule alone counts then, the logs say so once, and it is tried again where that can help.
    void saysWhatItCannotWatch_data() {
        const Table<int, QString, bool> row;
        row("network", int(WatchEnd::NetworkFolder), "the directory is on another machine", false);
        row("limit", int(WatchEnd::LimitReached), "the system watches no more directories for this user", true);
        row("gone", int(WatchEnd::Gone), "", true);
    }
    void saysWhatItCannotWatch() {
        const auto [end, reason, isTriedAgain] = Table<int, QString, bool>::Current();
        Watching fixture;
        fixture.Write(u"app.log"_qs, {});
        fixture.Add(A, u"type=0 intervall=58 watch=1"_qs);
        fixture.News().end = WatchEnd(end);
        fixture.StartMonitoring();
        fixture.Pass(3s);
        fixture.News().end = WatchEnd(end);
        fixture.Pass(310s);
        const QString line = u"Changes in '~/src' cannot be watched: %1. The activity runs by its schedule only."_qs;
        QCOMPARE(fixture.Log(A).count(line.arg(reason)), reason.isEmpty() ? 0 : 1);
        QCOMPARE(fixture.Read(u"app.log"_qs).count("cannot be watched"), reason.isEmpty() ? 0 : 1);
        QVERIFY(fixture.Checked() >= 5);
        QCOMPARE(fixture.watches->orders.size() > 1, isTriedAgain);
    }
};

QTEST_GUILESS_MAIN(TestWatching)
#include "test_watching.moc"

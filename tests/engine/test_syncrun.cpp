#include "ProgramFixture.h"
#include "RunHistory.h"
#include "SystemWorld.h"
#include "Table.h"
#include "Trees.h"
#include "modNativePath.h"

namespace {
const QString A = u"A"_qs;
constexpr qint64 early = 1'600'000'000;
constexpr qint64 same = 1'650'000'000;
constexpr qint64 late = 1'700'000'000;
} // namespace

// What a run does when the world is another one than it was a moment ago.
class TestSyncRun final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // A copy that became a mirror of other directories would delete all that only its old destination had.
    void whatEndsARunLeavesTheRest_data() {
        const Table<QString, QString> row;
        for (const auto* change : {"edited", "imported", "deleted", "other action", "closing", "stopped"})
            for (const auto* began : {"0", "1", "3"})
                row.Add(change, began);
        row("other folder in the source's place", "exchanged", "3");
    }
    void whatEndsARunLeavesTheRest() {
        const auto [change, began] = Table<QString, QString>::Current();
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, began}, {u"alert"_qs, u"Y"_qs}});
        for (const auto& file : {u"src/a"_qs, u"src/b"_qs, u"src/sub/c"_qs, u"dst/onlyHere"_qs, u"other/x"_qs})
            fixture.Write(file, "1");
        Program& program = fixture.Start();
        fixture.prompter.onAsk = [&](const Message&) {
            if (change == u"imported") {
                QByteArray other = fixture.Read(u"Kalvenor.kvd"_qs);
                other.replace("/src<", "/other<").replace(QByteArray("<action>" + began.toLatin1()), "<action>3");
                QVERIFY(fixture.ScratchFolder::Write(u"other.kvd"_qs, other));
                program.File().SetCurrentPath(fixture.Path(u"other.kvd"_qs));
                program.List().Refill();
            } else if (change == u"edited") {
                program.File().Write(A, ActivityField::SourceDir, fixture.Path(u"other"_qs));
            } else if (change == u"closing") {
                program.RequestEnd();
            } else if (change == u"stopped") {
                program.State().StopRun();
            } else if (change == u"exchanged") {
                QDir().rename(fixture.Path(u"src"_qs), fixture.Path(u"away"_qs));
                QDir().mkpath(fixture.Path(u"src"_qs));
            } else {
                program.File().Write(A, ActivityField::Action, began == u"3" ? u"0"_qs : u"3"_qs);
            }
        };
        int yields = 0;
        fixture.pump->onYield = [&] {
            if (change != u"deleted" || ++yields != 2) // the first is before the run
                return;
            program.Document().DeleteNode(u"/items/A"_qs);
            program.File().Save();
            program.List().Refill();
        };
        const RunOutcome outcome = program.RunNow(A);
        QVERIFY(outcome.interrupted);
        QVERIFY(!outcome.reason.isEmpty());
        QCOMPARE(outcome.stoppedByUser, change == u"stopped");
        QCOMPARE(outcome.failures > 0, change != u"closing" && change != u"stopped"); // those the user asked for
        QCOMPARE(fixture.prompter.shown.size(), change == u"deleted" ? 0U : 1U);
        QCOMPARE(Tree(fixture.Path(u"dst"_qs)).keys(), QStringList{u"onlyHere"_qs});
        QCOMPARE(Tree(fixture.Path(change == u"exchanged" ? u"away"_qs : u"src"_qs)).size(), 4);
        if (change == u"edited" || change == u"other action")
            QVERIFY(fixture.Log(A).contains(
                u"Run ended early: the activity was changed, or another activity file was opened."_qs));
    }

    // A run that the user has approved by its preview does that and nothing else.
    void whatChangedSinceThePreviewIsLeft_data() {
        // changed: what somebody writes behind the preview; "": takes the last file of the plan away
        const Table<QString, QString> row;
        for (const char* action : {"0", "1", "3"})
            for (const char* changed : {"src/a", "src/new", "src/sub/b", "src/sub/new", "dst/old", ""})
                row.Add(action, changed);
        row.Add("3", "dst/gone/x");
        row.Add("3", "dst/gone/new");
        row.Add("3", "dst/surplus");
    }
    void whatChangedSinceThePreviewIsLeft() {
        const auto [action, changed] = Table<QString, QString>::Current();
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, action}});
        for (const auto& file : {u"src/a"_qs, u"src/old"_qs, u"src/sub/b"_qs, u"dst/gone/x"_qs})
            fixture.Write(file, "first", late);
        fixture.Write(u"dst/old"_qs, "older", early);
        Program& program = fixture.Start();
        const RunPlan plan = program.Preview(A);
        QVERIFY(plan.IsComplete() && plan.HasDeeds());
        QVERIFY(fixture.Log(A).isEmpty() && !fixture.Exists(u"dst/a"_qs));
        if (changed.isEmpty())
            QVERIFY(QFile::remove(fixture.Path(u"src/sub/b"_qs)));
        else
            fixture.Write(changed, "changed", same);
        ApprovedPlan approved(plan);
        const RunOutcome outcome = program.RunNow(A, NewDrive::Hold, &approved);
        QVERIFY(outcome.interrupted && outcome.failures == 1);
        QVERIFY(outcome.reason.contains(u"preview"_qs));
        if (!changed.isEmpty())
            QCOMPARE(fixture.Read(changed), QByteArray("changed"));
        QVERIFY(!fixture.Exists(u"dst/new"_qs) && !fixture.Exists(u"dst/sub/new"_qs));
        const RunPlan now = program.Preview(A);
        ApprovedPlan present(now);
        QVERIFY(program.RunNow(A, NewDrive::Hold, &present).Succeeded());
    }

    // Only more than the activity allows is asked about: files that go, each once, among those found at the
    // destination.
    void theBrakeCountsWhatGoes_data() {
        // limits: files, percent; asked: the numbers in the question, "" for none
        const Table<QString, QString, QString> row;
        row.Add("3", "0 0", "");
        row.Add("3", "5 0", "");
        row.Add("3", "4 0", "would delete 3 and replace 2 of the 7 files that it finds at the destination (71 %)");
        row.Add("3", "9 71", "would delete 3 and replace 2 of the 7");
        row.Add("3", "0 72", "");
        row.Add("0", "2 0", "");
        row.Add("0", "1 0", "would delete 0 and replace 2 of the 4");
        row.Add("1", "1 0", "would delete 0 and replace 2 of the 4");
        row.Add("2", "1 1", "");
    }
    void theBrakeCountsWhatGoes() {
        const auto [action, limits, asked] = Table<QString, QString, QString>::Current();
        for (const bool yes : {false, true}) {
            ProgramFixture fixture;
            fixture.Add(A, {{u"action"_qs, action},
                            {u"askfiles"_qs, limits.section(u' ', 0, 0)},
                            {u"askpercent"_qs, limits.section(u' ', 1)}});
            for (const auto& file : {u"src/newer"_qs, u"src/sub/newer"_qs, u"src/old"_qs, u"src/sub/old"_qs,
                                     u"src/free"_qs, u"src/whole/free"_qs})
                fixture.Write(file, "source", file.endsWith(u"old") ? early : late);
            for (const auto& file : {u"dst/newer"_qs, u"dst/sub/newer"_qs, u"dst/old"_qs, u"dst/sub/old"_qs,
                                     u"dst/surplus"_qs, u"dst/sub/surplus"_qs, u"dst/gone/deep/surplus"_qs})
                fixture.Write(file, "destination", file.endsWith(u"old") ? early : same);
            const auto before = Tree(fixture.Path(u"dst"_qs));
            fixture.prompter.yes = yes;
            const RunOutcome outcome = fixture.Start().RunNow(A);
            QCOMPARE(fixture.prompter.shown.size(), asked.isEmpty() ? 0U : 1U);
            if (!asked.isEmpty())
                QVERIFY2(fixture.prompter.shown[0].text.startsWith(u"'A' "_qs + asked),
                         qPrintable(fixture.prompter.shown[0].text));
            const bool runs = asked.isEmpty() || yes;
            QCOMPARE(outcome.Succeeded(), runs);
            QCOMPARE(outcome.held, !runs);
            QCOMPARE(Tree(fixture.Path(u"dst"_qs)) == before, !runs || action == u"2");
        }
    }

    // What was refused is not asked about at each tick, and is still to be done.
    void aRefusedRunIsHeldUntilSomethingChanges_data() {
        // change: what ends the hold, and whether there is a question again
        const Table<QString, bool> row;
        row.Add("by hand", true);
        row.Add("edited", true);
        row.Add("less to do", false);
    }
    void aRefusedRunIsHeldUntilSomethingChanges() {
        const auto [change, isAsked] = Table<QString, bool>::Current();
        ProgramFixture fixture;
        fixture.Add(A, u"action=3 askfiles=1 intervall=2 runningmode=1"_qs);
        fixture.Write(u"src/f"_qs, "1");
        fixture.Write(u"dst/a"_qs, "2");
        fixture.Write(u"dst/b"_qs, "3");
        QVERIFY(fixture.ScratchFolder::Write(u"app.log"_qs, {}));
        fixture.StartMonitoring();
        Program& program = *fixture.program;
        fixture.Pass(std::chrono::seconds(20));
        QCOMPARE(fixture.prompter.shown.size(), 1U);
        QVERIFY(program.Monitoring().IsOn() && fixture.Runs(A) == 0 && fixture.Exists(u"dst/a"_qs));
        QVERIFY(fixture.Status(A).startsWith(u"The run of 'A' is held: it would delete 2"));
        QCOMPARE(fixture.Read(u"app.log"_qs).count("is held: it would"), 1);
        QCOMPARE(fixture.Log(A).size(), 2);
        const std::optional<RunResult> result = program.Results().Of(RunIdentity::Of(program.File(), A));
        QVERIFY(result && result->ending == RunEnding::Failed && result->reason == fixture.Status(A));
        fixture.prompter.yes = true;
        if (change == u"by hand")
            QVERIFY(program.RunNow(A).Succeeded());
        else if (change == u"edited")
            program.File().Write(A, ActivityField::Overwrite, u"N"_qs);
        else
            QVERIFY(QFile::remove(fixture.Path(u"dst/b"_qs)));
        fixture.Pass(std::chrono::seconds(20));
        QVERIFY(fixture.Runs(A) > 0 && !fixture.Exists(u"dst/a"_qs) && !fixture.Exists(u"dst/b"_qs));
        QCOMPARE(fixture.prompter.Told().filter(u"would delete"_qs).size(), isAsked ? 2 : 1);
        QVERIFY(!program.Monitoring().IsOn()); // it was to run once
    }

    // What appears or changes while the user makes up his mind is not what he said yes to.
    void theBrakeHoldsBehindItsQuestion_data() {
        // counted: the limit, and how much the plan sees; a question follows when that is more
        const Table<QString, int> row;
        row.Add("appears", 1);
        if (!SystemWorld::IsEmulated()) // there an open folder is listed as it was at first
            row.Add("appears", 2);
        row.Add("grows newer", 1);
        row.Add("grows newer", 2);
        row.Add("edited", 1);
        row.Add("other directory", 1);
        row.Add("other file", 1);
    }
    void theBrakeHoldsBehindItsQuestion() {
        const auto [change, limit] = Table<QString, int>::Current();
        ProgramFixture fixture;
        fixture.Add(A, u"action=3 askpercent=90 askfiles="_qs + QString::number(limit));
        for (const auto* name : {"1", "2", "3", "4"})
            fixture.Write(u"dst/surplus"_qs + QLatin1String(name), "1");
        for (const auto* name : {"3", "4"})
            fixture.Write(u"src/surplus"_qs + QLatin1String(name), "1");
        fixture.prompter.yes = true;
        Program& program = fixture.Start();
        const auto changeIt = [&] {
            if (change == u"appears")
                fixture.Write(u"dst/surplus0"_qs, "new");
            else if (change == u"grows newer")
                fixture.Write(u"src/surplus3"_qs, "22", late + 9);
            else if (change == u"edited")
                program.File().Write(A, ActivityField::AskFiles, u"7"_qs);
            else if (change == u"other directory")
                program.File().Write(A, ActivityField::TargetDir, fixture.Folder(u"other"_qs));
            else
                program.File().SaveAs(fixture.Path(u"other.kvd"_qs));
        };
        fixture.prompter.onAsk = [&](const Message&) { changeIt(); };
        if (limit == 2)
            fixture.pump->onYield = [&, yields = 0]() mutable {
                if (++yields == 3) // behind the plan
                    changeIt();
            };
        const RunOutcome outcome = program.RunNow(A);
        QVERIFY(outcome.interrupted && outcome.failures == 1 && !outcome.held);
        QCOMPARE(fixture.prompter.shown.size(), limit == 1 ? 1U : 0U);
        const bool isBound = change == u"appears" || change == u"grows newer";
        QVERIFY(outcome.reason.contains(isBound ? u"delete or replace more"_qs : u"was changed"_qs));
        QCOMPARE(Tree(fixture.Path(u"dst"_qs)).size(), isBound ? (change == u"appears" ? 3 : 2) : 4);
        QCOMPARE(fixture.Read(u"dst/surplus3"_qs), QByteArray("1"));
    }

    // The log of a run grows by the run itself.
    void theBrakeTakesNoNoticeOfTheLog() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"askpercent"_qs, u"1"_qs}, {u"logfile"_qs, fixture.Path("src/l")}});
        fixture.Start();
        for (int run = 0; run < 3; ++run)
            QVERIFY(fixture.program->RunNow(A).Succeeded());
        QVERIFY(fixture.prompter.shown.empty());
    }

    void resultsOutliveTheProgram() {
        ProgramFixture fixture;
        fixture.locks->place = fixture.Native(u"state"_qs);
        fixture.Add(A);
        fixture.Add(u"Missing"_qs, {{u"sourcedir"_qs, fixture.Path(u"nowhere"_qs)}});
        fixture.Add(u"Other"_qs);
        fixture.Write(u"src/a"_qs, "123");
        fixture.Start();
        const auto of = [&](const QString& name) {
            Program& program = *fixture.program;
            return program.Results().Of(RunIdentity::Of(program.File(), name));
        };
        fixture.program->RunNow(A);
        fixture.program->RunNow(u"Missing"_qs);
        QCOMPARE(fixture.program->Results().Unseen(), QSet<QString>{u"Missing"_qs});
        QVERIFY(!of(u"Other"_qs));
        const std::optional<RunResult> fine = of(A);
        const std::optional<RunResult> failed = of(u"Missing"_qs);
        QVERIFY(fine && fine->ending == RunEnding::Fine && fine->done == (RunCounts{.copied = 1, .bytes = 3}));
        QVERIFY(failed && failed->ending == RunEnding::Failed);
        QVERIFY(failed->reason.contains(fixture.Path(u"nowhere"_qs)));
        QFile log(failed->log);
        QVERIFY(log.open(QIODevice::ReadOnly) && log.seek(failed->line));
        const QByteArray line = log.readLine();
        QVERIFY2(line.startsWith("-> ") && line.contains(failed->reason.toLocal8Bit()), line.constData());
        {
            // A service that ran another activity of the file meanwhile.
            Program service(fixture.services, fixture.prompter, fixture.keys, fixture.texts);
            service.List().Refill();
            service.RunNow(u"Other"_qs);
        }
        fixture.Build().List().Refill();
        QCOMPARE(of(A), fine);
        QCOMPARE(of(u"Missing"_qs), failed);
        QVERIFY(of(u"Other"_qs));
        fixture.program->File().Write(A, ActivityField::Action, u"3"_qs); // another activity now
        QVERIFY(!of(A));
        const QStringList kept = QDir(fixture.Path(u"state"_qs)).entryList({u"*.results"_qs});
        QCOMPARE(kept.size(), 1);
        fixture.Write(u"state/"_qs + kept.first(), "{\"Missing\": {\"ending\": 7");
        fixture.Build().List().Refill();
        QVERIFY(!of(u"Missing"_qs));
    }

    void historyIsMergedAndBounded() {
        ProgramFixture fixture;
        fixture.Add(A);
        Program& program = fixture.Start();
        const RunIdentity run = RunIdentity::Of(program.File(), A);
        const auto make = [&] {
            return std::make_unique<RunHistory>(program.File(), *fixture.services.ownFiles,
                                                fixture.Native(u"state"_qs));
        };
        qint64 second = 1'700'000'000;
        const auto add = [&](RunHistory& history, RunEnding ending, std::uint64_t copied, const QString& reason = {}) {
            history.Add(run, {.ending = ending,
                              .at = QDateTime::fromSecsSinceEpoch(++second, Qt::UTC),
                              .took = std::chrono::seconds(second % 60),
                              .done = {.copied = copied, .bytes = std::uint64_t{1} << 62},
                              .failures = ending == RunEnding::Failed ? 3 : 0,
                              .reason = reason,
                              .log = u"log"_qs,
                              .line = 7});
        };
        auto window = make();
        auto service = make(); // has run it between two runs of the window
        add(*window, RunEnding::Fine, 1);
        add(*service, RunEnding::Failed, 0, u"why  so"_qs);
        add(*service, RunEnding::Fine, 0);
        add(*service, RunEnding::Fine, 0);
        window.reset();
        service.reset();
        window = make();
        add(*window, RunEnding::Fine, 0);
        const std::vector<PastRun> found = window->Of(run);
        QCOMPARE(found.size(), 3U);
        QVERIFY(found[0].result.done.copied == 1 && found[0].runs == 1);
        QVERIFY(found[1].result.ending == RunEnding::Failed && found[1].result.reason == u"why  so");
        QVERIFY(found[1].result.failures == 3 && found[1].result.done.bytes == std::uint64_t{1} << 62);
        QVERIFY(found[2].runs == 3 && found[2].result.ending == RunEnding::Fine);
        QVERIFY(found[2].since.secsTo(found[2].result.at) == 2 && found[2].result.at.toSecsSinceEpoch() == second);
        window.reset();
        QVERIFY(make()->Of(run) == found);
        RunIdentity other = run;
        other.action = u"3"_qs;
        QVERIFY(make()->Of(other).empty());
        window = make();
        for (std::size_t i = 0; i < RunHistory::MostRuns; ++i)
            add(*window, RunEnding::Early, i, QString(200, u'x'));
        window.reset();
        QCOMPARE(make()->Of(run).size(), RunHistory::MostRuns);
        QCOMPARE(make()->Of(run).front().result.done.copied, 0U);
        const QString file = u"state/"_qs + QDir(fixture.Path(u"state"_qs)).entryList({u"*.history"_qs}).value(0);
        QByteArray damaged = fixture.Read(file);
        damaged.replace("2 17000001", "7 17000001"); // an ending that there is not
        fixture.Write(file, damaged);
        QVERIFY(make()->Of(run).size() < RunHistory::MostRuns);
        fixture.Write(file, damaged.left(damaged.size() / 2));
        QVERIFY(make()->Of(run).empty());
    }

    void noticesOnTheDesktop_data() {
        const QString first = u"A|A has failed|first"_qs;
        const QString both = u" failed|2 activities have failed|A: second\nB: other line"_qs;
        const QString deed = u"B|B is done|1 copied, 0 moved, 0 replaced, 0 deleted, 0 left alone, 0 failed, "
                             u"0 bytes in 0 s; ended: done"_qs;
        // notify: the option
        const Table<int, QStringList> row;
        row("nothing", 0, {});
        row("failures", 1, {first, both, first, first, first});
        row("all", 2, {first, both, deed, first, first, first});
        row("unknown", 3, {});
    }
    void noticesOnTheDesktop() {
        const auto [notify, expected] = Table<int, QStringList>::Current();
        ProgramFixture fixture;
        fixture.Start();
        const auto begin = [&, option = notify] {
            fixture.Build().Options().Notify = static_cast<std::uint8_t>(option); // what waited has been told
        };
        const auto end = [&](const QString& name, RunEnding ending, const QString& reason, std::uint64_t copied = 0) {
            const RunResult result{.ending = ending, .at = {}, .done = {.copied = copied}, .reason = reason, .log = {}};
            fixture.program->Results().Ended({fixture.DefaultFile(), name, {}, {}, {}}, result);
        };
        const QString B = u"B"_qs;
        begin();
        end(A, RunEnding::Failed, u"first"_qs);
        end(A, RunEnding::Failed, u"second"_qs); // too soon after it
        end(B, RunEnding::Failed, u"other\nline"_qs);
        end(B, RunEnding::Fine, {}, 1);
        end(A, RunEnding::Fine, {});
        end(A, RunEnding::Early, u"stopped"_qs, 1);
        begin();
        end(A, RunEnding::Failed, u"first"_qs);
        end(A, RunEnding::Failed, u"first"_qs);
        begin();
        end(A, RunEnding::Failed, u"first"_qs);
        fixture.clock->Advance(std::chrono::hours(1));
        end(A, RunEnding::Failed, u"first"_qs);
        begin();
        QCOMPARE(fixture.notifier->shown, expected);
    }

    void aSummaryEndsTheRun_data() {
        const Table<QString, QString> row;
        row("copy", "0",
            "1 copied, 0 moved, 1 replaced, 0 deleted, 1 left alone, 0 failed, 3 bytes in 0 s; ended: done");
        row("move", "1",
            "0 copied, 1 moved, 1 replaced, 0 deleted, 1 left alone, 0 failed, 0 bytes in 0 s; ended: done");
        row("mirror", "3",
            "1 copied, 0 moved, 1 replaced, 1 deleted, 1 left alone, 0 failed, 3 bytes in 0 s; ended: done");
        row("failure", "0", "");
    }
    void aSummaryEndsTheRun() {
        const auto [action, summary] = Table<QString, QString>::Current();
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, action},
                        {u"sourcedir"_qs, fixture.Path(summary.isEmpty() ? u"nowhere"_qs : u"src"_qs)}});
        Program& program = fixture.Start();
        fixture.Write(u"src/new"_qs, "123");
        fixture.Write(u"dst/new"_qs, "old", 1'600'000'000);
        for (const char* same : {"src/same", "dst/same"})
            fixture.Write(QLatin1String(same), "same");
        fixture.Write(u"dst/surplus"_qs, "x");
        program.Options().SummaryLine = 1;
        program.RunNow(A);
        const QStringList log = fixture.Log(A);
        QCOMPARE(log.last(), u"idle"_qs); // the row's state, no longer the run's
        const QString line = log[log.size() - 2];
        if (summary.isEmpty())
            QVERIFY(line.contains(u"; ended: Directory '~/nowhere"));
        else
            QCOMPARE(line, u"Summary: "_qs + summary);
        QCOMPARE(fixture.Log(A).filter(u"Summary"_qs).size(), 1);
        program.Options().SummaryLine = 0;
        program.RunNow(A);
        QCOMPARE(fixture.Log(A).filter(u"Summary"_qs).size(), 1);
    }

    // What was looked at before a box is looked at again behind it.
    void whatChangedBehindABoxIsLeft_data() {
        // isQuestion: else an alert
        // changed: what somebody writes while the first box is open
        const Table<QString, bool, QString, QByteArrayList> row;
        row("copy over a newer file", "0", false, "dst/f", {"source", "changed"});
        row("move over a newer file", "1", false, "dst/f", {"source", "changed"});
        row("copy, question", "0", true, "dst/f", {"source", "changed"});
        row("move, question", "1", true, "dst/f", {"source", "changed"});
        row("mirror", "3", false, "dst/f", {"source", "changed"});
        row("source of a move", "1", false, "src/f", {"changed", "destination"});
        row("new file turns up", "0", false, "dst/new", {"source", "changed"});
        row("new file turns up, move", "1", false, "dst/new", {"source", "changed"});
        row("surplus is rewritten", "3", false, "dst/a surplus", {"changed"});
        row("surplus comes back", "3", false, "src/a surplus", {"changed", "surplus"});
    }
    void whatChangedBehindABoxIsLeft() {
        const auto [action, isQuestion, changed, kept] = Table<QString, bool, QString, QByteArrayList>::Current();
        ProgramFixture fixture;
        fixture.Add(A, (isQuestion ? u"overwrite=N alert=N onlynew=N action=" : u"alert=Y onlynew=N action=") + action);
        const bool isNew = changed.endsWith(u"new");
        fixture.Write(isNew ? u"src/new"_qs : u"src/f"_qs, "source", early);
        if (!isNew)
            fixture.Write(u"dst/f"_qs, "destination", same);
        if (changed.endsWith(u"surplus"))
            fixture.Write(u"dst/a surplus"_qs, "surplus", early);
        fixture.prompter.yes = true;
        Program& program = fixture.Start();
        fixture.prompter.onAsk = [&](const Message&) {
            if (fixture.prompter.shown.size() == 1)
                fixture.Write(changed, "changed", late);
        };
        QVERIFY(program.RunNow(A).failures > 0);
        QByteArrayList contents = Tree(fixture.Path(u"src"_qs)).values() + Tree(fixture.Path(u"dst"_qs)).values();
        for (const QByteArray& content : kept)
            QVERIFY2(contents.contains(content), content.constData());
        QCOMPARE(fixture.Read(changed), QByteArray("changed"));
    }

    // What the log says, also that of a run in whose middle another one is ended by the emergency key.
    void allIsInPlaceBeforeABoxOpens() {
        ProgramFixture fixture;
        fixture.Add(A);
        fixture.Add(u"Inner"_qs, {{u"sourcedir"_qs, fixture.Folder(u"empty"_qs)}});
        fixture.Write(u"src/a"_qs, "1");
        fixture.Write(u"src/sub/b"_qs, "2");
        fixture.Folder(u"dst/sub"_qs);
        Program& program = fixture.Start();
        program.Options().ExitAlert = 1;
        bool isInPlace = false;
        fixture.prompter.onAsk = [&](const Message&) { isInPlace = fixture.Exists(u"dst/a"_qs); };
        fixture.pump->onYield = [&] {
            if (fixture.Log(A).filter(u"/src/a"_qs).isEmpty())
                return;
            fixture.pump->onYield = nullptr;
            fixture.keys.down = true;
            program.RunNow(u"Inner"_qs);
        };
        program.RunNow(A);
        QVERIFY(isInPlace);
    }

    void gatheredLinesAreThereBeforeABoxOpens() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"overwrite"_qs, u"N"_qs}});
        for (const auto& name : {u"a"_qs, u"b"_qs})
            fixture.Write(u"src/"_qs + name, "1", early);
        fixture.Write(u"dst/a"_qs, "2", early);
        fixture.Write(u"dst/b"_qs, "2", late);
        QStringList atBox;
        fixture.prompter.onAsk = [&](const Message&) { atBox = fixture.Log(A); };
        fixture.Start().RunNow(A);
        QVERIFY(atBox.last().contains(u"/src/a' [13.09.2020 12:26:40] older/equal"_qs));
    }

    void theProgramsOwnFilesAreSafe_data() {
        // place: where the activity file lies
        const Table<QString, QString> row;
        row("mirror deletes surplus", "3", "dst/Own.kvd");
        row("mirror deletes a folder", "3", "dst/sub/Own.kvd");
        row("copy replaces", "0", "dst/both");
        row("move replaces", "1", "dst/both");
        row("move takes", "1", "src/Own.kvd");
        row("move takes a folder", "1", "src/sub/deeper/Own.kvd");
    }
    void theProgramsOwnFilesAreSafe() {
        const auto [action, place] = Table<QString, QString>::Current();
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, action}, {u"onlynew"_qs, u"N"_qs}, {u"logfile"_qs, fixture.Path(place)}});
        fixture.Write(u"src/both"_qs, "1");
        fixture.Write(u"dst/gone"_qs, "2");
        fixture.settings->file = fixture.Native(u"dst/settings"_qs);
        fixture.Write(u"dst/settings"_qs, "[Options]");
        fixture.locks->place = fixture.Native(u"dst/locks"_qs);
        fixture.Write(u"dst/locks/1.lock"_qs, "");
        Program& program = fixture.Start();
        QDir().mkpath(QFileInfo(fixture.Path(place)).path());
        program.File().SaveAs(fixture.Path(place));
        program.List().Refill();
        const QByteArray before = fixture.Read(place);
        const bool fails = program.RunNow(A).failures > 0;
        QCOMPARE(fails, action != u"3"); // that it stays surplus is no failure
        QCOMPARE(fixture.Read(place), before);
        QVERIFY(fixture.Exists(u"dst/settings"_qs) && fixture.Exists(u"dst/locks/1.lock"_qs));
        QCOMPARE(fixture.Exists(u"dst/gone"_qs), action != u"3");
    }

    void aLogInsideItsActivityNeitherFailsNorGoes() {
        for (const QString& action : {u"0"_qs, u"1"_qs, u"3"_qs})
            for (const QString& log : {u"src/own.log"_qs, u"dst/own.log"_qs}) {
                ProgramFixture fixture;
                fixture.Add(A, {{u"action"_qs, action}, {u"logfile"_qs, fixture.Path(log)}});
                fixture.Write(u"src/f"_qs, "1");
                Program& program = fixture.Start();
                for (int run = 0; run < 2; ++run)
                    QCOMPARE(program.RunNow(A).failures, 0);
                QVERIFY2(fixture.Read(log).contains("Checking finished."), qPrintable(action + log));
                QVERIFY2(fixture.Exists(u"dst/own.log"_qs), qPrintable(action + log));
            }
    }

    // The link was listed ahead, before the run moved what it leads to.
    void aLinkWhoseFileHasMovedIsNoFailure() {
        for (int round = 0; round < 20; ++round) {
            ProgramFixture fixture;
            fixture.Add(A, u"action=1"_qs);
            for (const auto& file : {u"src/a/file"_qs, u"dst/a/old"_qs, u"dst/b/old"_qs})
                fixture.Write(file, "1");
            fixture.Folder(u"src/b"_qs);
            if (!SystemWorld::Link("../a/file", fixture.Native() / "src/b/link"))
                QSKIP("this system makes no links");
            QVERIFY(fixture.Start().RunNow(A).Succeeded());
            QCOMPARE(fixture.Read(u"dst/a/file"_qs), QByteArray("1"));
        }
    }

    // A run that was stopped had taken a new folder as a whole; the next one does not take half of it by the filter,
    // and what has changed since goes by the rules.
    void aStoppedFolderIsFinishedWhole() {
        for (const auto* action : {"0", "1", "3"}) {
            ProgramFixture fixture;
            const QTemporaryDir other(modNativePath::ToText(SystemWorld::OtherDevice() / "new-XXXXXX"));
            fixture.Add(A, {{u"action"_qs, QString::fromLatin1(action)},
                            {u"extensions"_qs, u"txt"_qs},
                            {u"targetdir"_qs, other.path()}});
            for (const auto& file : {u"src/new/a.txt"_qs, u"src/new/b.bin"_qs, u"src/new/sub/c.bin"_qs})
                fixture.Write(file, "1");
            Program& program = fixture.Start();
            program.OnLogLine([&](const QString& line, bool) {
                if (line.contains(fixture.Path(u"src/new"_qs)))
                    program.RequestEnd();
            });
            QVERIFY(program.RunNow(A).interrupted);
            QCOMPARE(Tree(other.path()).size(), 2); // the folder and its mark
            fixture.Write(other.filePath(u"new/a.txt"_qs), "0", 1'600'000'000);
            QVERIFY(fixture.Start().RunNow(A).Succeeded());
            QCOMPARE(Tree(other.path()).keys().join(u' '), u"new new/a.txt new/b.bin new/sub new/sub/c.bin"_qs);
            QCOMPARE(Tree(other.path()).value(u"new/a.txt"_qs), QByteArray("1"));
        }
    }

    void deepTreesEndAtALevel() {
        if (SystemWorld::IsEmulated())
            QSKIP("the emulator needs minutes for so deep a path");
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"logfile"_qs, QString()}});
        Program& program = fixture.Start();
        const auto dig = [&](const QString& folder, int levels) { fixture.Folder(folder + u"/d"_qs.repeated(levels)); };
        dig(u"src"_qs, 1050);
        dig(u"dst"_qs, 1050);
        dig(u"dst/surplus"_qs, 1050);
        int tooDeep = 0;
        program.OnLogLine([&](const QString& line, bool) { tooDeep += line.contains(u"1,000 levels") ? 1 : 0; });
        QCOMPARE(program.RunNow(A).failures, 2);
        QCOMPARE(tooDeep, 2);
        SystemWorld::RemoveTree(fixture.Native(u"dst"_qs)); // Qt's removal is not deep
    }
};

QTEST_GUILESS_MAIN(TestSyncRun)
#include "test_syncrun.moc"

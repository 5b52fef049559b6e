#include "AsNobody.h"
#include "ProgramFixture.h"
#include "SystemCallFault.h"
#include "Table.h"
#include "Trees.h"

#include <filesystem>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {
const QString A = u"A"_qs;
constexpr qint64 early = 1'600'000'000;
constexpr qint64 same = 1'650'000'000;
constexpr qint64 late = 1'700'000'000;
constexpr uid_t nobody = AsNobody::id;
} // namespace

// What a run does when the world is another one than it was a moment ago.
class TestSyncRun final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() {
        // A mount name space of our own: whatever is mounted vanishes with this process.
        m_mayMount = ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }

    // A copy that became a mirror of other directories would delete all that only its old destination had.
    void whatEndsARunLeavesTheRest_data() {
        const Table<QString, QString> row;
        for (const auto* change : {"edited", "imported", "deleted", "other action", "closing"})
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
        QCOMPARE(outcome.failures > 0, change != u"closing"); // that the user asked for
        QCOMPARE(fixture.prompter.shown.size(), change == u"deleted" ? 0U : 1U);
        QCOMPARE(Tree(fixture.Path(u"dst"_qs)).keys(), QStringList{u"onlyHere"_qs});
        QCOMPARE(Tree(fixture.Path(change == u"exchanged" ? u"away"_qs : u"src"_qs)).size(), 4);
        if (change == u"edited" || change == u"other action")
            QVERIFY(fixture.Log(A).contains(
                u"Run ended early: the activity was changed, or another activity file was opened."_qs));
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

    // Not missing, and nothing is deleted for it: half a listing would make the rest look surplus.
    void whatCannotBeOpenedEndsAMirror_data() {
        // rights of -1: no descriptor is left
        const Table<QString, int, QString> row;
        row("no rights", "src", 0000, "13");
        row("no right to list", "src", 0300, "13");
        row("names, and no more", "src/sub", 0444, "13");
        row("no descriptors", "src", -1, "24");
    }
    void whatCannotBeOpenedEndsAMirror() {
        const auto [place, rights, error] = Table<QString, int, QString>::Current();
        const AsNobody nobodyInParticular;
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}});
        fixture.Write(u"src/sub/f/1"_qs, "1");
        fixture.Write(u"dst/sub/f/1"_qs, "2");
        fixture.Write(u"dst/sub/keep"_qs, "3");
        Program& program = fixture.Start();
        QStringList lines;
        program.OnLogLine([&](const QString& line, bool) { lines.append(line); });
        program.Options().StopIfFolderNotExist = 1;
        const fs::path closed = fixture.Native(place);
        struct rlimit before {};
        QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
        const struct rlimit none { 3, before.rlim_max };
        if (rights < 0)
            QCOMPARE(::setrlimit(RLIMIT_NOFILE, &none), 0);
        else
            fs::permissions(closed, fs::perms(rights));
        const RunOutcome outcome = program.RunNow(A);
        QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
        fs::permissions(closed, fs::perms::all);
        QVERIFY(!outcome.directoryMissing && outcome.failures > 0 && outcome.interrupted);
        QVERIFY(program.List().IsChecked(0));
        QVERIFY(fixture.Exists(u"dst/sub/keep"_qs) && fixture.Read(u"dst/sub/f/1"_qs) == "2");
        QCOMPARE(lines.filter(place + u"' failed - Error"_qs + error).size(), 1);
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

    // A privileged run over other people's folders must not publish what the maker of a link may not read.
    void aForeignLinkIsNotFollowed() {
        if (::geteuid() != 0)
            QSKIP("only an administrator runs over other people's folders");
        for (const auto& [linkOwner, fileOwner, isCopied] :
             {std::tuple(nobody, uid_t{0}, false), {uid_t{0}, nobody, true}, {nobody, nobody, true}}) {
            ProgramFixture fixture;
            fixture.Add(A);
            fixture.Write(u"secret"_qs, "s");
            Program& program = fixture.Start();
            fs::create_symlink("../secret", fixture.Native() / "src/link");
            QCOMPARE(::lchown((fixture.Native() / "src/link").c_str(), linkOwner, linkOwner), 0);
            QCOMPARE(::chown((fixture.Native() / "secret").c_str(), fileOwner, fileOwner), 0);
            QCOMPARE(program.RunNow(A).failures, isCopied ? 0 : 1);
            QCOMPARE(fixture.Exists(u"dst/link"_qs), isCopied);
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
            fs::create_symlink("../a/file", fixture.Native() / "src/b/link");
            QVERIFY(fixture.Start().RunNow(A).Succeeded());
            QCOMPARE(fixture.Read(u"dst/a/file"_qs), QByteArray("1"));
        }
    }

    // A run that was stopped had taken a new folder as a whole; the next one does not take half of it by the filter,
    // and what has changed since goes by the rules.
    void aStoppedFolderIsFinishedWhole() {
        for (const auto* action : {"0", "1", "3"}) {
            ProgramFixture fixture;
            const QTemporaryDir other(u"/dev/shm/new-XXXXXX"_qs);
            fixture.Add(A, {{u"action"_qs, QString::fromLatin1(action)},
                            {u"extensions"_qs, u"txt"_qs},
                            {u"targetdir"_qs, other.path()}});
            for (const auto& file : {u"src/new/a.txt"_qs, u"src/new/b.bin"_qs, u"src/new/sub/c.bin"_qs})
                fixture.Write(file, "1");
            Program& program = fixture.Start();
            program.OnLogLine([&](const QString& line, bool) {
                if (line.contains(u"src/new"))
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

    // The copy was in place, and then the run ended before it could remove the source.
    void anInterruptedMoveIsCompleted() {
        ProgramFixture fixture;
        const QTemporaryDir other(u"/dev/shm/move-XXXXXX"_qs);
        fixture.Add(A, {{u"action"_qs, u"1"_qs}, {u"targetdir"_qs, other.path()}});
        for (const auto& file : {u"src/moved"_qs, u"src/rewritten"_qs, u"src/sub/moved"_qs})
            fixture.Write(file, "1");
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(SystemCallFault::Install({{SYS_unlinkat, EACCES}}) ? fixture.Start().RunNow(A).failures : 0);
        int status = 0;
        ::waitpid(child, &status, 0);
        if (WEXITSTATUS(status) == 0)
            QSKIP("the kernel filters no system calls");
        QCOMPARE(Tree(other.path()).value(u"moved"_qs), QByteArray("1"));
        fixture.Write(u"src/rewritten"_qs, "2"); // with its old time
        fixture.Write(u"src/equal"_qs, "3");
        QVERIFY(fixture.Start().RunNow(A).Succeeded());
        QCOMPARE(Tree(fixture.Path(u"src"_qs)).keys(), QStringList{u"rewritten"_qs});
        fixture.Write(u"src/equal"_qs, "3");
        QVERIFY(fixture.Start().RunNow(A).Succeeded());
        QVERIFY(fixture.Exists(u"src/equal"_qs)); // no move was interrupted: it is not newer
    }

    // It could be another tree's: that nothing was deleted must not look like a good run.
    void nothingIsDeletedOnAnUnknownMount() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}});
        fixture.Write(u"dst/surplus"_qs, "1");
        const pid_t child = ::fork();
        if (child == 0)
            ::_exit(SystemCallFault::Install({{SYS_statx, EIO}}) ? fixture.Start().RunNow(A).failures : 99);
        int status = 0;
        ::waitpid(child, &status, 0);
        if (WEXITSTATUS(status) == 99)
            QSKIP("the kernel filters no system calls");
        QCOMPARE(WEXITSTATUS(status), 1);
        QVERIFY(fixture.Exists(u"dst/surplus"_qs));
    }

    // With its drive unmounted, an empty source would empty the mirror, and a move would fill the bare mount point.
    void aMissingDriveHoldsTheRun_data() {
        // alert: the drive is pulled while the box is shown
        const Table<QString, QString, QString> row;
        row("source of a mirror", "3", "src", "N");
        row("destination of a move", "1", "dst", "N");
        row("destination, pulled during the last run", "1", "dst", "Y");
    }
    void aMissingDriveHoldsTheRun() {
        const auto [action, mounted, alert] = Table<QString, QString, QString>::Current();
        if (!m_mayMount)
            QSKIP("only an administrator can mount");
        ProgramFixture fixture;
        fixture.locks->place = fixture.Native(u"state"_qs);
        fixture.Add(A, {{u"action"_qs, action}, {u"alert"_qs, alert}});
        const fs::path drive = fixture.Folder(mounted).toStdString();
        const auto fill = [&](bool isThere) {
            if (isThere)
                QCOMPARE(::mount("none", drive.c_str(), "tmpfs", 0, nullptr), 0);
            if (isThere || mounted == u"dst")
                fixture.Write(u"src/f"_qs, "1");
        };
        fill(true);
        fixture.Start();
        QVERIFY(fixture.ScratchFolder::Write(u"app.log"_qs, {}));
        QVERIFY(fixture.program->RunNow(A).Succeeded());
        if (alert == u"Y") {
            fixture.Write(u"src/f"_qs, "2");
            fixture.prompter.onAsk = [&drive](const Message&) { ::umount2(drive.c_str(), MNT_DETACH); };
            QVERIFY(fixture.program->RunNow(A).Succeeded());
            fixture.prompter.onAsk = nullptr;
        }
        ::umount2(drive.c_str(), MNT_DETACH);
        const bool isMirror = action == u"3";
        fill(false);
        for (int run = 0; run < 2; ++run) {
            const RunOutcome outcome = fixture.program->RunNow(A);
            QVERIFY(outcome.held && outcome.interrupted && outcome.failures == 1);
            QVERIFY(fixture.Status(A).contains(fixture.Path(mounted)));
            QCOMPARE(fixture.Exists(u"dst/f"_qs), isMirror);
        }
        fixture.program->Monitoring().ToggleMonitoring();
        fixture.Pass(std::chrono::seconds(25));
        QVERIFY(fixture.Status(A).contains(fixture.Path(mounted)));
        fixture.program->Monitoring().StopMonitoring();
        QCOMPARE(fixture.Exists(u"dst/f"_qs), isMirror);
        QCOMPARE(fixture.Read(u"app.log"_qs).count("The run is held"), 1);
        fill(true); // the former drive
        QVERIFY(fixture.program->RunNow(A).Succeeded());
        ::umount2(drive.c_str(), MNT_DETACH);
        fill(false);
        fixture.Start(); // another process remembers
        QVERIFY(fixture.program->RunNow(A, NewDrive::OkIfTold).held);
        QVERIFY(fixture.program->RunNow(A, NewDrive::OkIfTold).Succeeded());
        QCOMPARE(fixture.Exists(u"dst/f"_qs), !isMirror);
        QVERIFY(fixture.program->RunNow(A).Succeeded());
    }

    void deepTreesEndAtALevel() {
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"logfile"_qs, QString()}});
        Program& program = fixture.Start();
        const auto dig = [&](const QString& folder, int levels) { fixture.Folder(folder + u"/d"_qs.repeated(levels)); };
        dig(u"src"_qs, 1500);
        dig(u"dst"_qs, 1500);
        dig(u"dst/surplus"_qs, 1200);
        int tooDeep = 0;
        program.OnLogLine([&](const QString& line, bool) { tooDeep += line.contains(u"1,000 levels") ? 1 : 0; });
        QCOMPARE(program.RunNow(A).failures, 2);
        QCOMPARE(tooDeep, 2);
        QCOMPARE(std::system(("rm -rf " + (fixture.Native() / "dst").native()).c_str()), 0); // Qt's removal is not deep
    }

    // The folder that is walked is the one that was listed, and deleting keeps to one mount.
    void mountsAreNoPartOfTheTree() {
        if (!m_mayMount)
            QSKIP("only an administrator can mount");
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"alert"_qs, u"Y"_qs}});
        for (const auto* path : {"src/first", "src/disk", "dst/disk", "dst/old/bound", "other", "src/both", "dst/both"})
            QDir().mkpath(fixture.Path(path));
        const auto mount = [&](const char* what, const QString& where, const char* type, unsigned long flags) {
            return ::mount(what, fixture.Native(where).c_str(), type, flags, nullptr);
        };
        fixture.Write(u"other/kept"_qs, "1");
        fixture.Write(u"dst/disk/backup"_qs, "2");
        QCOMPARE(mount(fixture.Native(u"other"_qs).c_str(), u"dst/old/bound"_qs, nullptr, MS_BIND), 0);
        QCOMPARE(mount(fixture.Native(u"other"_qs).c_str(), u"dst/both"_qs, nullptr, MS_BIND), 0);
        QCOMPARE(mount("none", u"src/disk"_qs, "tmpfs", 0), 0);
        fixture.Write(u"src/disk/backup"_qs, "2");
        fixture.Write(u"src/a file"_qs, "3");
        Program& program = fixture.Start();
        fixture.prompter.onAsk = [&](const Message&) { ::umount2(fixture.Native(u"src/disk"_qs).c_str(), MNT_DETACH); };
        QVERIFY(program.RunNow(A).interrupted); // the disk went while the box was open
        QCOMPARE(fixture.Read(u"dst/disk/backup"_qs), QByteArray("2"));
        fixture.prompter.onAsk = nullptr;
        program.RunNow(A);
        QCOMPARE(fixture.Read(u"other/kept"_qs), QByteArray("1"));
        for (const auto& bound : {u"dst/old/bound"_qs, u"dst/both"_qs})
            ::umount2(fixture.Native(bound).c_str(), MNT_DETACH);
    }

  private:
    bool m_mayMount = false;
};

QTEST_GUILESS_MAIN(TestSyncRun)
#include "test_syncrun.moc"

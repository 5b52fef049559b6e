// Runs among mounts, rights and failing system calls as only Linux has them.
#include "AsNobody.h"
#include "DriveMark.h"
#include "ProgramFixture.h"
#include "SystemCallFault.h"
#include "SystemWorld.h"
#include "Table.h"
#include "Trees.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/syscall.h>

namespace {
const QString A = u"A"_qs;
constexpr uid_t nobody = AsNobody::id;
} // namespace

class TestLinuxRun final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() {
        // A mount name space of our own: whatever is mounted vanishes with this process.
        m_mayMount = ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
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

    // The copy was in place, and then the run ended before it could remove the source.
    void anInterruptedMoveIsCompleted() {
        ProgramFixture fixture;
        const QTemporaryDir other(u"/dev/shm/move-XXXXXX"_qs);
        fixture.Add(A, {{u"action"_qs, u"1"_qs}, {u"targetdir"_qs, other.path()}});
        for (const auto& file : {u"src/moved"_qs, u"src/rewritten"_qs, u"src/sub/moved"_qs})
            fixture.Write(file, "1");
        const int failures = SystemWorld::InChild([&] {
            return SystemCallFault::Install({{SYS_unlinkat, EACCES}}) ? fixture.Start().RunNow(A).failures : 0;
        });
        if (failures == 0)
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
        const int failures = SystemWorld::InChild([&] {
            return SystemCallFault::Install({{SYS_statx, EIO}}) ? fixture.Start().RunNow(A).failures : 99;
        });
        if (failures == 99)
            QSKIP("the kernel filters no system calls");
        QCOMPARE(failures, 1);
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

    // Strict, whoever starts the run: a directory of the same path on another drive is another directory.
    void onlyItsOwnDriveWillDo_data() {
        // folder: on the drive; instead: what is there in its place
        const Table<QString, QString, QString, QString> row;
        for (const char* whose : {"src", "dst"}) {
            row.Add("3", whose, "", "bare mount point");
            row.Add("1", whose, "", "other drive");
            row.Add("3", whose, "/sub", "nothing");
        }
        row.Add("2", "src", "", "bare mount point");
    }
    void onlyItsOwnDriveWillDo() {
        const auto [action, whose, below, instead] = Table<QString, QString, QString, QString>::Current();
        if (!m_mayMount)
            QSKIP("only an administrator can mount");
        ProgramFixture fixture;
        const fs::path drive = fixture.Folder(whose).toStdString();
        const fs::path away = fixture.Folder(u"away"_qs).toStdString();
        const auto mount = [&](const char* name) { return ::mount(name, drive.c_str(), "tmpfs", 0, nullptr); };
        QCOMPARE(mount("this"), 0);
        fixture.Write(u"src"_qs + (whose == u"src" ? below : QString()) + u"/f"_qs, "1");
        fixture.Folder(whose + below);
        const QString mark = DriveMark::Of(modDrive::Of(fixture.Native(whose + below)).value());
        QVERIFY(mark.endsWith(u"/"_qs + whose) && DriveMark::Spoken(mark).contains(fixture.Path(whose)));
        const QString other = DriveMark::Of(modDrive::Of(fixture.Native()).value());
        QVERIFY(!other.isEmpty() && other != mark);
        const bool isSource = whose == u"src";
        fixture.Add(A, {{u"action"_qs, action},
                        {isSource ? u"sourcedir"_qs : u"targetdir"_qs, fixture.Path(whose + below)},
                        {u"intervall"_qs, u"2"_qs},
                        {u"onlyondrives"_qs, u"1"_qs},
                        {u"sourcedrive"_qs, isSource ? mark : other},
                        {u"targetdrive"_qs, isSource ? other : mark + u" | a name"_qs}});
        Program& program = fixture.Start();
        QVERIFY(fixture.ScratchFolder::Write(u"app.log"_qs, {}));
        QCOMPARE(::mount(drive.c_str(), away.c_str(), nullptr, MS_MOVE, nullptr), 0);
        if (instead == u"other drive")
            QCOMPARE(mount("other"), 0);
        for (const NewDrive anyWay : {NewDrive::Hold, NewDrive::OkIfTold, NewDrive::Ok}) {
            const RunOutcome outcome = program.RunNow(A, anyWay);
            QVERIFY(outcome.held && outcome.interrupted && outcome.failures == 1);
            QVERIFY(outcome.reason.contains(fixture.Path(whose + below)) && outcome.reason == fixture.Status(A));
            QCOMPARE(program.Preview(A).outcome.reason, outcome.reason);
        }
        program.Monitoring().ToggleMonitoring();
        fixture.Pass(std::chrono::seconds(20));
        QVERIFY(program.Monitoring().IsOn() && fixture.Runs(A) == 0);
        QCOMPARE(fixture.Read(u"app.log"_qs).count("The run is held"), 1);
        if (instead == u"other drive")
            ::umount2(drive.c_str(), MNT_DETACH);
        QCOMPARE(::mount(away.c_str(), drive.c_str(), nullptr, MS_MOVE, nullptr), 0);
        fixture.Pass(std::chrono::seconds(20));
        QVERIFY(fixture.Runs(A) > 0);
        QCOMPARE(fixture.Exists(u"dst"_qs + (isSource ? QString() : below) + u"/f"_qs), action != u"2");
        program.Monitoring().StopMonitoring();
        program.File().Write(A, ActivityField::SourceDrive, {});
        QVERIFY(program.RunNow(A, NewDrive::Ok).held);
        ::umount2(drive.c_str(), MNT_DETACH);
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

    // What cannot be kept is neither replaced nor deleted; where there are no hard links, a rename keeps it.
    void theTrashStaysOnItsDisk_data() {
        const Table<QString, int> row;
        row("no hard links", "", 0);
        row("another disk below", "dst/sub", 1);
        row("a disk without room", "dst", 2);
    }
    void theTrashStaysOnItsDisk() {
        const auto [mounted, failures] = Table<QString, int>::Current();
        if (!m_mayMount)
            QSKIP("only an administrator can mount");
        ProgramFixture fixture;
        fixture.Add(A, {{u"action"_qs, u"3"_qs}, {u"keepdays"_qs, u"3"_qs}});
        const fs::path disk = fixture.Folder(mounted).toStdString();
        if (!mounted.isEmpty())
            QCOMPARE(::mount("none", disk.c_str(), "tmpfs", 0, failures == 2 ? "nr_inodes=7" : nullptr), 0);
        fixture.Write(u"src/sub/f"_qs, "new");
        fixture.Write(u"src/g"_qs, "new");
        fixture.Write(u"dst/sub/f"_qs, "old", 1'600'000'000);
        fixture.Write(u"dst/g"_qs, "new");
        fixture.Write(u"dst/gone/file"_qs, "surplus");
        const int counted = SystemWorld::InChild([&] {
            const bool hasLinks = !mounted.isEmpty() || SystemCallFault::Install({{SYS_linkat, EPERM}});
            return hasLinks || failures == 0 ? fixture.Start().RunNow(A).failures : 99;
        });
        QCOMPARE(counted, failures);
        const bool isReplaced = failures == 0;
        QCOMPARE(fixture.Read(u"dst/sub/f"_qs), QByteArray(isReplaced ? "new" : "old"));
        QCOMPARE(fixture.Exists(u"dst/gone/file"_qs), failures == 2);
        Program& program = fixture.Start();
        for (const KeptRun& run : program.KeptIn(fixture.Native(u"dst"_qs)))
            QVERIFY(program.Undo(fixture.Native(u"dst"_qs), run).Succeeded());
        QCOMPARE(fixture.Read(u"dst/sub/f"_qs), QByteArray("old"));
        QCOMPARE(fixture.Read(u"dst/gone/file"_qs), QByteArray("surplus"));
        if (!mounted.isEmpty())
            ::umount2(disk.c_str(), MNT_DETACH);
    }

  private:
    bool m_mayMount = false;
};

QTEST_GUILESS_MAIN(TestLinuxRun)
#include "test_linuxrun.moc"

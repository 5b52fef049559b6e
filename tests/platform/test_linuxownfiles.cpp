// What only Linux does to the program's own files: owners and access lists, full disks, failing calls, paths that are
// no text.
#include "FileWorld.h"
#include "LinuxOwnFiles.h"
#include "ScratchFolder.h"
#include "SizeLimit.h"
#include "SystemCallFault.h"
#include "Table.h"
#include "modNativePath.h"

#include <QScopeGuard>
#include <atomic>
#include <sys/mount.h>
#include <sys/syscall.h>
#include <thread>

namespace {

const QString own = u"own"_qs;

struct Scratch : ScratchFolder {
    fs::path file = Native(own);
};

} // namespace

class TestLinuxOwnFiles : public QObject {
    Q_OBJECT

    LinuxOwnFiles m_files;

  private Q_SLOTS:
    void replacementKeepsPermissions() {
        const Scratch scratch;
        QVERIFY(!m_files.ReplaceAll(scratch.file, "1"));
        QCOMPARE(fs::status(scratch.file).permissions() & fs::perms::others_write, fs::perms::none);
        QCOMPARE(::chmod(scratch.file.c_str(), 0640), 0);
        QVERIFY(!m_files.ReplaceAll(scratch.file, "2"));
        QCOMPARE(static_cast<unsigned>(fs::status(scratch.file).permissions()), 0640U);
    }

    void replacementKeepsOwnerAndAccessList_data() {
        // asNobody: who owns the file, but is not in its group
        // mode: after the replacement of a file of mode 0674
        const Table<bool, bool, unsigned> row;
        row("root", false, false, 0674U);
        row("root, list", false, true, 0674U);
        row("nobody", true, false, 0644U);
        row("nobody, list", true, true, 0674U);
    }
    void replacementKeepsOwnerAndAccessList() {
        const auto [asNobody, hasList, mode] = Table<bool, bool, unsigned>::Current();
        if (::geteuid() != 0)
            QSKIP("needs to change the user");
        const uid_t owner = asNobody ? 65534 : 1001;
        const Scratch scratch;
        QVERIFY(scratch.Write(own, "old"));
        QCOMPARE(::chown(scratch.file.c_str(), owner, 2001), 0);
        QCOMPARE(::chmod(scratch.file.c_str(), 0674), 0);
        QCOMPARE(::chmod(scratch.Native().c_str(), 0777), 0);
        FileWorld::SetAttribute(scratch.file, "user.colour", "blue");
        const std::string colour = FileWorld::Attribute(scratch.file, "user.colour");
        // What the folder gives to new files must not open this one.
        if (!FileWorld::SetAttribute(scratch.Native(), FileWorld::DefaultList, FileWorld::AccessList(7)) ||
            (hasList && !FileWorld::SetAttribute(scratch.file, FileWorld::OwnList, FileWorld::AccessList(7))))
            QSKIP("the file system has no access lists");
        QCOMPARE(FileWorld::InChild([&] { return m_files.ReplaceAll(scratch.file, "new") ? 1 : 0; }, asNobody), 0);
        const struct stat status = FileWorld::StatusOf(scratch.file);
        QCOMPARE(scratch.Read(own), QByteArray("new"));
        QCOMPARE(status.st_uid, owner);
        QCOMPARE(status.st_gid, gid_t{asNobody ? 65534U : 2001U});
        QCOMPARE(status.st_mode & 07777U, mode);
        QVERIFY(FileWorld::Attribute(scratch.file, FileWorld::OwnList) ==
                (!hasList ? std::string() : FileWorld::AccessList(asNobody ? 4 : 7)));
        QVERIFY(FileWorld::Attribute(scratch.file, "user.colour") == colour);
    }

    void shortWriteLeavesTheOldContent() {
        const Scratch scratch;
        QVERIFY(scratch.Write(own, "old\n"));
        {
            const SizeLimit limit(1000);
            QVERIFY(m_files.ReplaceAll(scratch.file, QByteArray(5000, 'x')));
            QVERIFY(m_files.CreateNew(scratch.Native(u"second"_qs), QByteArray(5000, 'x')));
            QVERIFY(m_files.Append(scratch.file, QByteArray(5000, 'x'), true)); // the half line is taken back
        }
        QCOMPARE(scratch.Read(own), QByteArray("old\n"));
        QCOMPARE(scratch.Entries(), QStringList{own});
    }

    void fullDiskLeavesTheOldContent() {
        const Scratch scratch;
        const fs::path disk = scratch.Native(u"disk"_qs);
        fs::create_directory(disk);
        if (::mount("tmpfs", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
            QSKIP("only root can make a small disk");
        const auto unmount = qScopeGuard([&] { ::umount(disk.c_str()); });
        const QByteArray old(30'000, 'o');
        QVERIFY(scratch.Write(u"disk/own"_qs, old) && scratch.Write(u"source"_qs, QByteArray(50'000, 's')));
        QVERIFY(m_files.ReplaceAll(disk / "own", QByteArray(50'000, 'n')) == std::errc::no_space_on_device);
        // Across devices, onto the same full disk: the source must stay.
        QVERIFY(m_files.MoveAway(scratch.Native(u"source"_qs), disk / "moved") == std::errc::no_space_on_device);
        QCOMPARE(scratch.Read(u"disk/own"_qs), old);
        QCOMPARE(scratch.Entries(u"disk"_qs), QStringList{own});
        QCOMPARE(scratch.Read(u"source"_qs).size(), 50'000);
        // What is appended meanwhile must not go with the source.
        std::atomic<bool> writing = true;
        std::thread writer([&] {
            while (writing)
                std::ignore = m_files.Append(disk / "own", "x", true);
        });
        std::error_code busy;
        while (busy != std::errc::device_or_resource_busy) { // sooner or later it meets one
            busy = m_files.MoveAway(disk / "own", scratch.Native(u"moved"_qs));
            fs::remove(scratch.Native(u"moved"_qs));
        }
        writing = false;
        writer.join();
        const QByteArray grown = scratch.Read(u"disk/own"_qs);
        QVERIFY(!grown.isEmpty());
        // And with enough room it goes over.
        QVERIFY(!m_files.MoveAway(disk / "own", scratch.Native(u"back"_qs)) && !fs::exists(disk / "own"));
        QCOMPARE(scratch.Read(u"back"_qs), grown);
    }

    void failedSyncLeavesTheOldContent() {
        const Scratch scratch;
        QVERIFY(scratch.Write(own, "old"));
        const auto replace = [&] { return m_files.ReplaceAll(scratch.file, "new") ? 0 : 1; };
        const int result = FileWorld::InChild([&] {
            return SystemCallFault::Install({{SYS_fsync, EIO}}) ? replace() : 2;
        });
        if (result == 2)
            QSKIP("the kernel filters no system calls");
        QCOMPARE(result, 0);
        QCOMPARE(scratch.Read(own), QByteArray("old"));
        QCOMPARE(scratch.Entries(), QStringList{own});
    }

    void whatIsReadOnlyKeepsItsContent() {
        const Scratch scratch;
        QVERIFY(scratch.Write(own, "old"));
        const auto isRefused = [&] { return m_files.ReplaceAll(scratch.file, "new") ? 0 : 1; };
        const auto isReadOnly = [&] { return m_files.IsWritableFolder(scratch.Native()) ? 1 : 0; };
        const bool isRoot = ::geteuid() == 0; // who may write everywhere
        fs::permissions(scratch.file, fs::perms(0666));
        fs::permissions(scratch.Native(), fs::perms(0555));
        QCOMPARE(FileWorld::InChild(isRefused, isRoot), 0);
        QCOMPARE(FileWorld::InChild(isReadOnly, isRoot), 0);
        fs::permissions(scratch.file, fs::perms(0444));
        fs::permissions(scratch.Native(), fs::perms(0777));
        QCOMPARE(FileWorld::InChild(isRefused, isRoot), 0);
        QCOMPARE(FileWorld::InChild(isReadOnly, isRoot), 1);
        QCOMPARE(scratch.Read(own), QByteArray("old"));
    }

    void pathsAndTheirTexts() {
        const std::pair<QByteArray, QString> paths[] = {
            {"/\xE4\xC3\xA4z", u"/\\xe4\u00E4z"_qs},   // Latin-1
            {"/\xF0\x9F\x98", u"/\\xf0\\x9f\\x98"_qs}, // cut off
            {"\xEF\xBF\xBD\xFF", u"\uFFFD\\xff"_qs}};  // the mark of bad text itself
        for (const auto& [path, text] : paths) {
            const fs::path native(path.toStdString());
            QCOMPARE(modNativePath::ToText(native), text);
            if (QString::fromUtf8(path) == text)
                QCOMPARE(modNativePath::FromText(text), native);
        }
        QVERIFY(modNativePath::Absolute(u" \t"_qs).empty());
        // As text, both would name another folder than the system means behind a link.
        QCOMPARE(modNativePath::Absolute(u"link/../b/./c/"_qs), fs::current_path() / "link/../b/./c");
        QCOMPARE(modNativePath::Absolute(u"/link/.."_qs), fs::path("/link/.."));
        QCOMPARE(modNativePath::Absolute(u"//"_qs), fs::path("//"));
    }
};

QTEST_GUILESS_MAIN(TestLinuxOwnFiles)
#include "test_linuxownfiles.moc"

#include "FileWorld.h"
#include "SystemCallFault.h"
#include "TemporaryName.h"

#include <QTest>
#include <algorithm>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

// Every fault is met once on a run of all kinds of transfer. Either the work is done all the same, or what could not be
// done is reported, and then every file is whole in one of its two places, and old files are whole.
using Faults = std::vector<SystemCallFault>;
Q_DECLARE_METATYPE(Faults)

namespace {

constexpr std::uint32_t kUnnamed = O_TMPFILE & ~O_DIRECTORY;
const std::string kOld = "old";
const std::string kLarge(6'000'000, 'x');

enum Exit { Fine, WithFailures, NoFilter };

void fill(FileWorld& world) {
    for (const char* name : {"copied", "replacing", "moved", "movedover", "tree/1", "tree/2", "tree/sub/3"})
        FileWorld::Write(world.source / name, name);
    FileWorld::Write(world.source / "large", kLarge);
    FileWorld::Write(world.destination / "replacing", kOld);
    FileWorld::Write(world.destination / "movedover", kOld);
}

int runUnder(FileWorld& world, const Faults& faults) {
    const pid_t child = ::fork();
    if (child == 0) {
        if (!SystemCallFault::Install(faults))
            ::_exit(NoFilter);
        {
            const auto transfer = world.system.NewTransfer(world.observer);
            for (const char* name : {"copied", "replacing", "large"})
                transfer->Copy(world.File(name));
            for (const char* name : {"moved", "movedover"})
                transfer->Move(world.File(name));
            transfer->MoveTree(world.from, world.to, "tree", {});
        }
        ::_exit(world.observer.failures.empty() ? Fine : WithFailures);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

class TestTransferFaults final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void goesAnotherWay_data();
    void goesAnotherWay();
    void losesNothing_data();
    void losesNothing();
};

void TestTransferFaults::goesAnotherWay_data() {
    const SystemCallFault noUnnamed{SYS_openat, EOPNOTSUPP, 2, kUnnamed};
    QTest::addColumn<Faults>("faults");
    QTest::newRow("no fault") << Faults{};
    QTest::newRow("no files without a name") << Faults{noUnnamed};
    QTest::newRow("a kernel that knows none") << Faults{{SYS_openat, EISDIR, 2, kUnnamed}};
    QTest::newRow("files without a name get none") << Faults{{SYS_linkat, EPERM}};
    QTest::newRow("no privilege to link a descriptor") << Faults{{SYS_linkat, ENOENT, 4, AT_EMPTY_PATH}};
    QTest::newRow("renames that always replace") << Faults{noUnnamed, {SYS_renameat2, EINVAL}};
    QTest::newRow("copies within one device only") << Faults{{SYS_copy_file_range, EXDEV}};
    QTest::newRow("no copying in the kernel") << Faults{{SYS_copy_file_range, ENOSYS}, {SYS_ioctl, ENOTTY}};
    QTest::newRow("copying in the kernel does nothing") << Faults{{SYS_copy_file_range, 0}};
    QTest::newRow("no sync of all files") << Faults{{SYS_syncfs, ENOSYS}};
    QTest::newRow("another program's write failed") << Faults{{SYS_syncfs, EIO}};
    QTest::newRow("no sync of folders") << Faults{{SYS_fsync, EINVAL}, {SYS_syncfs, ENOSYS}};
    QTest::newRow("no early writing") << Faults{{SYS_sync_file_range, ESPIPE}};
    QTest::newRow("no extended attributes") << Faults{{SYS_flistxattr, EOPNOTSUPP}};
    QTest::newRow("bits and times of others") << Faults{{SYS_fchmod, EPERM}, {SYS_utimensat, EPERM}};
    QTest::newRow("no thread to be had") << Faults{{SYS_clone3, EAGAIN}, {SYS_clone, EAGAIN}};
}

void TestTransferFaults::goesAnotherWay() {
    QFETCH(Faults, faults);
    for (const bool otherDevice : {false, true}) {
        FileWorld world(otherDevice);
        fill(world);
        const int result = runUnder(world, faults);
        if (result == NoFilter)
            QSKIP("the kernel filters no system calls");
        QCOMPARE(result, static_cast<int>(Fine));
        const std::map<std::string, std::string> expected = {{"copied", "copied"},       {"replacing", "replacing"},
                                                             {"moved", "moved"},         {"large", kLarge},
                                                             {"movedover", "movedover"}, {"tree", "/"},
                                                             {"tree/1", "tree/1"},       {"tree/2", "tree/2"},
                                                             {"tree/sub", "/"},          {"tree/sub/3", "tree/sub/3"}};
        QVERIFY(FileWorld::Tree(world.destination) == expected);
        QCOMPARE(FileWorld::Tree(world.source).size(), std::size_t{3});
    }
}

void TestTransferFaults::losesNothing_data() {
    const SystemCallFault noRange{SYS_copy_file_range, EXDEV};
    const SystemCallFault noUnnamed{SYS_openat, EOPNOTSUPP, 2, kUnnamed};
    QTest::addColumn<Faults>("faults");
    QTest::newRow("no new files") << Faults{{SYS_openat, EACCES, 2, O_RDWR}};
    QTest::newRow("reading fails") << Faults{noRange, {SYS_pread64, EIO}};
    QTest::newRow("reading ends early") << Faults{noRange, {SYS_pread64, 0}};
    QTest::newRow("writing fails") << Faults{noRange, {SYS_pwrite64, EIO}};
    QTest::newRow("writing does nothing") << Faults{noRange, {SYS_pwrite64, 0}};
    QTest::newRow("disk full") << Faults{{SYS_copy_file_range, ENOSPC}};
    QTest::newRow("quota used up, named") << Faults{noUnnamed, {SYS_copy_file_range, EDQUOT}};
    QTest::newRow("syncs fail") << Faults{{SYS_fdatasync, EIO}, {SYS_syncfs, EIO}};
    QTest::newRow("syncs fail, named") << Faults{noUnnamed, {SYS_fdatasync, EIO}, {SYS_syncfs, EIO}};
    QTest::newRow("folder syncs fail") << Faults{{SYS_fsync, EIO}, {SYS_syncfs, EIO}, {SYS_renameat2, EXDEV}};
    QTest::newRow("links fail") << Faults{{SYS_linkat, EIO}};
    QTest::newRow("renames fail") << Faults{{SYS_renameat, EIO}, {SYS_renameat2, EIO}};
    QTest::newRow("renames fail, named") << Faults{noUnnamed, {SYS_renameat, EIO}, {SYS_renameat2, EIO}};
    QTest::newRow("bits fail") << Faults{{SYS_openat, EOPNOTSUPP, 2, kUnnamed}, {SYS_fchmod, EIO}};
    QTest::newRow("times fail") << Faults{{SYS_utimensat, EIO}};
    QTest::newRow("no new folders") << Faults{{SYS_mkdirat, EACCES}, {SYS_renameat2, EXDEV}};
    QTest::newRow("nothing can be removed") << Faults{{SYS_unlinkat, EACCES}, {SYS_renameat2, EXDEV}};
    QTest::newRow("folders cannot be listed")
        << Faults{{SYS_getdents64, EIO}, {SYS_renameat, EIO}, {SYS_renameat2, EXDEV}};
}

void TestTransferFaults::losesNothing() {
    QFETCH(Faults, faults);
    for (const bool otherDevice : {false, true}) {
        FileWorld world(otherDevice);
        fill(world);
        const auto before = FileWorld::Tree(world.source);
        const int result = runUnder(world, faults);
        if (result == NoFilter)
            QSKIP("the kernel filters no system calls");
        QCOMPARE(result, static_cast<int>(WithFailures));
        const auto source = FileWorld::Tree(world.source);
        const auto destination = FileWorld::Tree(world.destination);
        const bool canRemove = std::none_of(faults.begin(), faults.end(),
                                            [](const SystemCallFault& fault) { return fault.call == SYS_unlinkat; });
        for (const auto& [name, content] : destination) {
            if (MakerOfTemporary(name))
                QVERIFY(!canRemove);
            else
                QVERIFY(content == before.at(name) || (content == kOld && name.find("ov") != name.npos) ||
                        (content == kOld && name == "replacing"));
        }
        for (const auto& [name, content] : before) {
            QVERIFY2(source.contains(name) ? source.at(name) == content
                                           : destination.contains(name) && destination.at(name) == content,
                     name.c_str());
        }
        QVERIFY(destination.contains("replacing") && destination.contains("movedover"));
    }
}

QTEST_GUILESS_MAIN(TestTransferFaults)
#include "test_transferfaults.moc"

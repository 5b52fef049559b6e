#include "FileWorld.h"
#include "LinuxFolder.h"
#include "SystemCall.h"
#include "SystemCallFault.h"
#include "Table.h"
#include "TemporaryName.h"

#include <csignal>
#include <cstdlib>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/syscall.h>

using Faults = std::vector<SystemCallFault>;

namespace {

enum Exit { Fine, WithFailures, NotPossible };

constexpr int rounds = 30;
const SystemCallFault noUnnamed{SYS_openat, EOPNOTSUPP, 2, O_TMPFILE & ~O_DIRECTORY};

void fill(FileWorld& world) {
    for (int number = 0; number < 12; ++number) {
        const std::string name = std::to_string(number);
        FileWorld::Write(world.source / ("copy" + name), "new" + name + std::string(2000, 'n'));
        FileWorld::Write(world.source / ("move" + name), "new" + name + std::string(100, 'n'));
        FileWorld::Write(world.source / "tree" / (number % 2 == 0 ? "a" : "b") / name, "new" + name);
        if (number % 2 == 0) {
            FileWorld::Write(world.destination / ("copy" + name), "old");
            FileWorld::Write(world.destination / ("move" + name), "old");
        }
    }
    FileWorld::Write(world.source / "copy_large", std::string(6'000'000, 'n'));
    FileWorld::Write(world.destination / "copy_large", "old");
}

std::vector<FolderEntry> listed(const Folder& folder) {
    std::vector<FolderEntry> entries;
    return folder.List(entries) ? std::vector<FolderEntry>() : entries;
}

/// One pass over a pair of folders, as a walk makes it: a missing folder goes as a whole. Files with "copy" in
/// front of their name are copied, all others moved.
void transferAll(FileTransfer& transfer, const std::shared_ptr<Folder>& from, const std::shared_ptr<Folder>& to,
                 const std::vector<FolderEntry>& entries) {
    std::error_code error;
    for (const FolderEntry& entry : entries) {
        const std::optional<FileFacts> there = to->Stat(entry.name, error);
        const TransferFile file{from, to, entry.name, entry.facts, there};
        const auto below =
            entry.facts.kind == EntryKind::Folder && there ? to->OpenChild({entry.name, *there}, error) : nullptr;
        if (below && !below->RemoveLeftovers().isNewFolder) {
            const auto child = from->OpenChild(entry, error);
            transferAll(transfer, child, below, listed(*child));
        } else if (entry.facts.kind == EntryKind::Folder) {
            transfer.MoveTree(from, to, entry, {});
        } else {
            std::ignore = entry.name.native().starts_with("copy") ? transfer.Copy(file) : transfer.Move(file);
        }
    }
    to->ForgetUnfinished();
}

Exit run(FileWorld& world, const std::vector<FolderEntry>& entries) {
    world.to->RemoveLeftovers();
    transferAll(*world.system.NewTransfer(world.observer, nullptr), world.from, world.to, entries);
    return world.observer.failures.empty() ? Fine : WithFailures;
}

/// A run that stops before and after each system call and tells its process to `onStop`. False when the system lets
/// nobody trace.
bool runTraced(FileWorld& world, const Faults& faults, const std::function<void(pid_t)>& onStop) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isTraced = ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0;
        if (!isTraced || !SystemCallFault::Install(faults) || ::raise(SIGSTOP) != 0)
            ::_exit(NotPossible);
        run(world, listed(*world.from));
        ::_exit(Fine);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
        onStop(child);
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    }
    return !WIFEXITED(status) || WEXITSTATUS(status) == Fine;
}

/// A filled world and what was in it.
struct FilledWorld : FileWorld {
    explicit FilledWorld(bool otherDevice) : FileWorld(otherDevice) {
        fill(*this);
        files = Tree(source);
        old = Tree(destination);
    }

    /// Every file is whole in one of its two places, and no old one has gone.
    void CheckThatNothingIsLost() {
        const Entries left = Tree(source);
        const Entries there = Tree(destination);
        temporaries = 0;
        for (const auto& [name, content] : there) {
            if (MakerOfTemporary(fs::path(name).filename().native()))
                ++temporaries;
            else
                QVERIFY2(content == files.at(name) || (old.contains(name) && content == "old"), name.c_str());
        }
        for (const auto& [name, content] : files) {
            const auto found = left.contains(name) ? left.find(name) : there.find(name);
            QVERIFY2(found != there.end() && found->second == content, name.c_str());
        }
        for (const auto& [name, content] : old)
            QVERIFY2(there.contains(name), name.c_str());
    }
    void CheckThatAllIsDone() const {
        QVERIFY(Tree(destination) == files);
        for (const auto& [name, content] : Tree(source))
            QVERIFY2(name.starts_with("copy") || content == "/", name.c_str());
    }

    Entries files;
    Entries old;
    int temporaries = 0;
};

std::string text(std::size_t kilobytes, char character) {
    return std::string(kilobytes * 1024, character);
}

/// A destination with a disk of its own, in a mount namespace of our own so that it vanishes with this process.
struct MountedWorld : FileWorld {
    ~MountedWorld() { Unmount(); }

    [[nodiscard]] bool Mount(const char* device, const fs::path& folder, const char* type, const std::string& options) {
        if (::unshare(CLONE_NEWNS) != 0 || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount(device, folder.c_str(), type, 0, options.c_str()) != 0)
            return false;
        mounts.push_back(folder);
        Reopen();
        return true;
    }
    void Unmount() {
        to.reset();
        for (; !mounts.empty(); mounts.pop_back())
            ::umount2(mounts.back().c_str(), MNT_DETACH);
    }
    std::vector<fs::path> mounts;
};

/// A disk of one megabyte that fills up under the transfer.
struct SmallDisk : MountedWorld {
    bool isMounted = Mount("none", destination, "tmpfs", "size=1m,mode=0755");
};

/// A disk on a loop device. What it promises is more than what backs it: writes fail late.
struct ThinDisk : MountedWorld {
    ThinDisk(const std::string& makeFileSystem, int megabytes)
        : backing(source.parent_path() / "backing"), image(backing / "image") {
        fs::create_directory(backing);
        isMounted = Mount("none", backing, "tmpfs", "size=" + std::to_string(megabytes) + "m");
        if (isMounted)
            std::ofstream(image).close();
        isMounted = isMounted && ::truncate(image.c_str(), 400L << 20) == 0 &&
                    Shell(makeFileSystem + " " + image.native()) && Attach();
    }
    ~ThinDisk() { Detach(); }
    ThinDisk(const ThinDisk&) = delete;
    ThinDisk& operator=(const ThinDisk&) = delete;

    /// Small requests: the loop device hides the failure of a request that could be written in part.
    bool Attach() {
        const bool isAttached =
            Shell("mount -o loop " + image.native() + " " + destination.native()) &&
            Shell("echo 4 > /sys/block/$(basename $(losetup -nO NAME -j " + image.native() + "))/queue/max_sectors_kb");
        Reopen();
        return isAttached;
    }
    void Detach() {
        to.reset();
        ::umount2(destination.c_str(), 0);
    }
    /// What the disk holds when there is room again.
    bool Restart() {
        Detach();
        return Shell("mount -o remount,size=1g " + backing.native()) && Attach();
    }
    static bool Shell(const std::string& command) {
        return std::system((command + " > /dev/null 2>&1").c_str()) == 0; // NOLINT(cert-env33-c)
    }

    fs::path backing;
    fs::path image;
    bool isMounted = false;
};

} // namespace

// A run of all kinds of transfer meets a fault of the system, or is killed. Whatever happens, nothing is lost, and the
// next run finishes the work and leaves nothing of the first one behind.
class TestTransferFaults final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aFaultLosesNothing_data() {
        const Table<Exit, Faults> row;
        const SystemCallFault noRange{SYS_copy_file_range, EXDEV};
        const SystemCallFault noExchange{SYS_renameat2, EXDEV};
        // Where there is another way, it is gone.
        row("no fault", Fine, {});
        row("no files without a name", Fine, {noUnnamed});
        row("files without a name get none", Fine, {{SYS_linkat, EPERM}});
        row("renames that always replace", Fine, {noUnnamed, {SYS_renameat2, EINVAL}});
        row("no copying in the kernel", Fine, {{SYS_copy_file_range, ENOSYS}, {SYS_ioctl, ENOTTY}});
        row("copying in the kernel does nothing", Fine, {{SYS_copy_file_range, 0}});
        row("no sync of all files", Fine, {{SYS_syncfs, ENOSYS}});
        row("another program's write failed", Fine, {{SYS_syncfs, EIO}});
        row("no sync of folders", Fine, {{SYS_fsync, EINVAL}, {SYS_syncfs, ENOSYS}});
        row("no extended attributes", Fine, {{SYS_flistxattr, EOPNOTSUPP}});
        row("bits and times of others", Fine, {{SYS_fchmod, EPERM}, {SYS_utimensat, EPERM}});
        row("no thread to be had", Fine, {{SYS_clone3, EAGAIN}, {SYS_clone, EAGAIN}});
        // Where there is none, it is reported.
        row("no new files", WithFailures, {{SYS_openat, EACCES, 2, O_RDWR}});
        row("reading fails", WithFailures, {noRange, {SYS_pread64, EIO}});
        row("writing fails", WithFailures, {noRange, {SYS_pwrite64, EIO}});
        row("disk full", WithFailures, {{SYS_copy_file_range, ENOSPC}});
        row("syncs fail", WithFailures, {{SYS_fdatasync, EIO}, {SYS_syncfs, EIO}});
        row("folder syncs fail", WithFailures, {{SYS_fsync, EIO}, {SYS_syncfs, EIO}, noExchange});
        row("links fail", WithFailures, {{SYS_linkat, EIO}});
        row("renames fail", WithFailures, {{SYS_renameat, EIO}, {SYS_renameat2, EIO}});
        row("renames fail, named", WithFailures, {noUnnamed, {SYS_renameat, EIO}, {SYS_renameat2, EIO}});
        row("bits fail", WithFailures, {noUnnamed, {SYS_fchmod, EIO}});
        row("no new folders", WithFailures, {{SYS_mkdirat, EACCES}, noExchange});
        row("nothing can be removed", WithFailures, {{SYS_unlinkat, EACCES}, noExchange});
        row("folders cannot be listed", WithFailures, {{SYS_getdents64, EIO}, {SYS_renameat, EIO}, noExchange});
    }
    void aFaultLosesNothing() {
        const auto [expected, faults] = Table<Exit, Faults>::Current();
        const long failing = expected == Fine ? -1 : faults[0].call;
        for (const bool otherDevice : {false, true}) {
            FilledWorld world(otherDevice);
            const std::vector<FolderEntry> entries = listed(*world.from);
            const int result = FileWorld::InChild(
                [&] { return SystemCallFault::Install(faults) ? run(world, entries) : NotPossible; });
            if (result == NotPossible)
                QSKIP("the kernel filters no system calls");
            QCOMPARE(result, static_cast<int>(expected));
            world.CheckThatNothingIsLost();
            if (expected == Fine) {
                world.CheckThatAllIsDone();
                QVERIFY(!fs::exists(world.source / "tree"));
            }
            QVERIFY(world.temporaries == 0 || failing == SYS_unlinkat);
            if (failing == SYS_fsync) // what could lose its name in a power cut keeps its source
                QVERIFY(FileWorld::Tree(world.source) == world.files);
        }
    }

    /// Its bytes are on disk, but perhaps not its name.
    void aCopyThatMayVanishIsReported() {
        for (const int files : {1, 20}) {
            FileWorld world;
            for (int number = 0; number < files; ++number)
                FileWorld::Write(world.source / "tree" / std::to_string(number) / "file", "new");
            const int result = FileWorld::InChild([&] {
                const bool isReady = SystemCallFault::Install({{SYS_fsync, EIO}});
                world.TransferTree(false);
                return isReady ? static_cast<int>(world.observer.failures.size()) : -1;
            });
            if (result == -1)
                QSKIP("the kernel filters no system calls");
            QVERIFY(result > 0);
        }
    }

    void aKilledRunLosesNothing_data() {
        const Table<bool, Faults> row;
        row("without names", true, Faults{});
        row("with temporary names", true, Faults{noUnnamed});
        row("same device", false, Faults{noUnnamed});
    }
    void aKilledRunLosesNothing() {
        const auto [otherDevice, faults] = Table<bool, Faults>::Current();
        FilledWorld whole(otherDevice);
        int allCalls = 0;
        if (!runTraced(whole, faults, [&](pid_t) { ++allCalls; }))
            QSKIP("processes may not be traced here");
        int leftovers = 0;
        for (int round = 1; round <= rounds; ++round) { // each time at another system call
            FilledWorld world(otherDevice);
            int callsLeft = round * allCalls / (rounds + 1);
            runTraced(world, faults, [&](pid_t child) {
                if (--callsLeft <= 0)
                    ::kill(child, SIGKILL);
            });
            world.CheckThatNothingIsLost();
            leftovers += world.temporaries;
            world.Reopen();
            QCOMPARE(run(world, listed(*world.from)), Fine);
            world.CheckThatAllIsDone();
        }
        QVERIFY(leftovers > 0 || faults.empty());
    }

    /// The sync of one batch, or another program's, writes the next batch too: whose report of the failure is it?
    void aWriteThatFailsLateLosesNothing() {
        constexpr rlim_t smallBatches = 80;
        for (const int megabytes : {71, 72, 73, 74}) {
            ThinDisk world("mkfs.xfs -f", megabytes);
            if (!world.isMounted)
                QSKIP("only an administrator with XFS tools can mount such a disk");
            for (int number = 0; number < 300; ++number) {
                const fs::path name = std::to_string(number);
                FileWorld::Write(world.source / name, text(100, static_cast<char>('a' + number % 26)));
                if (number % 2 == 0)
                    FileWorld::Write(world.destination / name, "old");
            }
            const FileWorld::Entries files = FileWorld::Tree(world.source);
            const pid_t syncer = ::fork();
            while (syncer == 0)
                ::syncfs(DescriptorOf(*world.to));
            const int result = FileWorld::InChild([&world] {
                const struct rlimit limit { smallBatches, smallBatches };
                ::setrlimit(RLIMIT_NOFILE, &limit);
                return run(world, listed(*world.from));
            });
            ::kill(syncer, SIGKILL);
            ::waitpid(syncer, nullptr, 0);
            QCOMPARE(result, static_cast<int>(WithFailures));
            QVERIFY(world.Restart());
            for (const auto& [name, content] : files) {
                const std::string there = FileWorld::Read(world.destination / name);
                const bool isMoved = !fs::exists(world.source / name);
                const bool isWhole = there == content || (!isMoved && (there.empty() || there == "old"));
                QVERIFY2(isWhole && (there.empty() != fs::exists(world.destination / name)), name.c_str());
            }
        }
    }

    void aDiskThatGoesLosesNothing_data() {
        QTest::addColumn<std::string>("makeFileSystem");
        for (const char* maker : {"mkfs.xfs -f", "mkfs.ext4 -F"})
            QTest::newRow(maker) << std::string(maker);
    }
    /// It goes when the moved files have their names, but before the names are on disk.
    void aDiskThatGoesLosesNothing() {
        QFETCH(std::string, makeFileSystem);
        ThinDisk world(makeFileSystem, 200);
        if (!world.isMounted)
            QSKIP("only an administrator with the file system's tools can mount such a disk");
        for (int number = 0; number < 30; ++number)
            FileWorld::Write(world.source / std::to_string(number), text(2, 'n'));
        const FileWorld::Entries files = FileWorld::Tree(world.source);
        int unnamed = 30;
        bool isGone = false;
        const Faults noThreads{{SYS_clone3, EAGAIN}, {SYS_clone, EAGAIN}}; // all calls are made where they are traced
        const bool isTraced = runTraced(world, noThreads, [&](pid_t child) {
            struct __ptrace_syscall_info call {};
            ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof call, &call);
            const std::uint64_t number = call.op == PTRACE_SYSCALL_INFO_ENTRY ? call.entry.nr : 0;
            unnamed -= number == SYS_linkat ? 1 : 0;
            if (unnamed > 0 || isGone || (number != SYS_syncfs && number != SYS_fsync))
                return;
            const FileDescriptor disk(::open(world.destination.c_str(), O_RDONLY | O_DIRECTORY));
            constexpr unsigned long shutDown = _IOR('X', 125, std::uint32_t); // the same on ext4 and XFS
            std::uint32_t withoutLog = 2;
            isGone = ::ioctl(disk.Get(), shutDown, &withoutLog) == 0;
        });
        if (!isTraced)
            QSKIP("processes may not be traced here");
        QVERIFY(isGone);
        QVERIFY(world.Restart());
        for (const auto& [name, content] : files)
            QVERIFY2(FileWorld::Read(world.source / name) == content ||
                         FileWorld::Read(world.destination / name) == content,
                     name.c_str());
    }

    void goesOnAfterWhatDoesNotFit() {
        for (const bool move : {false, true}) {
            SmallDisk world;
            if (!world.isMounted)
                QSKIP("only an administrator can mount a small disk");
            FileWorld::Write(world.source / "file", text(700, 'n'));
            FileWorld::Write(world.source / "small", text(10, 's'));
            FileWorld::Write(world.source / "tree/1", text(100, '1'));
            FileWorld::Write(world.source / "tree/2", text(1200, '2'));
            FileWorld::Write(world.source / "tree/sub/3", text(100, '3'));
            FileWorld::Write(world.destination / "file", text(500, 'o'));
            world.Transfer(move, {world.File("file"), world.File("small")});
            world.TransferTree(move);
            QCOMPARE(world.observer.failures.size(), std::size_t{2});
            QVERIFY(world.observer.failures["file"] == std::errc::no_space_on_device);
            QVERIFY(world.observer.failures["2"] == std::errc::no_space_on_device);
            QVERIFY(FileWorld::Tree(world.destination) == (FileWorld::Entries{{"file", text(500, 'o')},
                                                                              {"small", text(10, 's')},
                                                                              {"tree", "/"},
                                                                              {"tree/1", text(100, '1')},
                                                                              {"tree/sub", "/"},
                                                                              {"tree/sub/3", text(100, '3')}}));
            QVERIFY(FileWorld::Read(world.source / "file") == text(700, 'n'));
            QVERIFY(FileWorld::Read(world.source / "tree/2") == text(1200, '2'));
            for (const char* moved : {"small", "tree/1", "tree/sub"})
                QCOMPARE(fs::exists(world.source / moved), !move);
        }
    }

    void placesWhatIsStagedToMakeRoom() {
        SmallDisk world;
        if (!world.isMounted)
            QSKIP("only an administrator can mount a small disk");
        for (const char* name : {"a", "b", "c"}) {
            FileWorld::Write(world.source / name, text(250, 'n'));
            FileWorld::Write(world.destination / name, text(250, 'o'));
        }
        world.Transfer(false, {world.File("a"), world.File("b"), world.File("c")});
        QVERIFY(world.observer.failures.empty());
        QVERIFY(FileWorld::Tree(world.destination) == FileWorld::Tree(world.source));
    }
};

QTEST_GUILESS_MAIN(TestTransferFaults)
#include "test_transferfaults.moc"

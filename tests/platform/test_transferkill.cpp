#include "FileWorld.h"
#include "SystemCallFault.h"
#include "TemporaryName.h"

#include <QTest>
#include <algorithm>
#include <csignal>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int kRounds = 30;
constexpr int kNeverKilled = 1'000'000;

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
    FileWorld::Write(world.source / "copy_large", std::string(5'000'000, 'n'));
    FileWorld::Write(world.destination / "copy_large", "old");
}

/// One pass over a pair of folders, as a walk makes it: a missing folder goes as a whole.
void transferAll(FileTransfer& transfer, const std::shared_ptr<Folder>& from, const std::shared_ptr<Folder>& to) {
    to->RemoveLeftovers();
    std::vector<FolderEntry> entries;
    std::error_code error = from->List(entries);
    for (const FolderEntry& entry : entries) {
        const TransferFile file{from, to, entry.name, entry.facts};
        if (entry.facts.kind == EntryKind::Folder && to->Stat(entry.name, error))
            transferAll(transfer, from->OpenChild(entry.name, error), to->OpenChild(entry.name, error));
        else if (entry.facts.kind == EntryKind::Folder)
            transfer.MoveTree(from, to, entry.name, {});
        else if (entry.name.native().starts_with("copy"))
            transfer.Copy(file);
        else
            transfer.Move(file);
    }
}

void run(FileWorld& world) {
    const auto transfer = world.system.NewTransfer(world.observer);
    transferAll(*transfer, world.from, world.to);
}

bool isTemporary(const fs::path& path) {
    return MakerOfTemporary(path.filename().native()).has_value();
}

/// Calls made until the end or the kill; 0 when the system lets nobody trace.
int runUntilCall(FileWorld& world, const std::vector<SystemCallFault>& faults, int call) {
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isTraced = ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0;
        if (!isTraced || !SystemCallFault::Install(faults) || ::raise(SIGSTOP) != 0)
            ::_exit(1);
        run(world);
        ::_exit(0);
    }
    int status = 0;
    int calls = 0;
    while (::waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        if (++calls >= call)
            ::kill(child, SIGKILL);
        else
            ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
    }
    return WIFEXITED(status) && WEXITSTATUS(status) != 0 ? 0 : calls;
}

} // namespace

// A run is killed at one of its system calls, each time at another one. Whatever it left, every file is whole, and the
// next run finishes the work and leaves nothing of the killed one behind.
class TestTransferKill final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aKilledRunLosesNothing_data();
    void aKilledRunLosesNothing();
};

void TestTransferKill::aKilledRunLosesNothing_data() {
    QTest::addColumn<bool>("otherDevice");
    QTest::addColumn<bool>("named");
    QTest::newRow("without names") << true << false;
    QTest::newRow("with temporary names") << true << true;
    QTest::newRow("same device") << false << true;
}

void TestTransferKill::aKilledRunLosesNothing() {
    QFETCH(bool, otherDevice);
    QFETCH(bool, named);
    std::vector<SystemCallFault> faults;
    if (named)
        faults.push_back({SYS_openat, EOPNOTSUPP, 2, O_TMPFILE & ~O_DIRECTORY});
    int allCalls = 0;
    {
        FileWorld world(otherDevice);
        fill(world);
        allCalls = runUntilCall(world, faults, kNeverKilled);
        if (allCalls == 0)
            QSKIP("processes may not be traced here");
    }
    int leftovers = 0;
    for (int round = 1; round <= kRounds; ++round) {
        FileWorld world(otherDevice);
        fill(world);
        const auto before = FileWorld::Tree(world.source);
        runUntilCall(world, faults, round * allCalls / (kRounds + 1));
        const auto source = FileWorld::Tree(world.source);
        for (const auto& [name, content] : FileWorld::Tree(world.destination)) {
            if (isTemporary(name))
                ++leftovers;
            else
                QVERIFY(content == before.at(name) || content == "old");
        }
        for (const auto& [name, content] : before)
            QVERIFY(content == "/" || source.contains(name) || FileWorld::Read(world.destination / name) == content);
        world.Reopen();
        run(world);
        for (const auto& [name, content] : FileWorld::Tree(world.destination)) {
            QVERIFY2(!isTemporary(name), name.c_str());
            QVERIFY(content == before.at(name));
        }
        QVERIFY(world.observer.failures.empty());
    }
    QVERIFY(leftovers > 0 || !named);
}

QTEST_GUILESS_MAIN(TestTransferKill)
#include "test_transferkill.moc"

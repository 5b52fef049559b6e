#include "FileWorld.h"

#include <QTest>
#include <algorithm>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using Entries = std::map<std::string, std::string>;

namespace {

void fill(const fs::path& tree) {
    FileWorld::Write(tree / "a", "in the tree");
    FileWorld::Write(tree / "sub/.hidden", "hidden");
    FileWorld::Write(tree / "sub/deeper/\xff name", "deep");
    fs::create_directories(tree / "empty");
    if (::geteuid() == 0) // nobody else may take anything out of it again
        fs::permissions(tree / "sub/deeper", fs::perms::owner_read | fs::perms::owner_exec);
    for (const char* folder : {"empty", "sub/deeper", "sub", "."})
        FileWorld::SetTime(tree / folder, 1'100'000'000);
}

void run(FileWorld& world, bool move, const std::set<FileId>& excluded = {}) {
    const auto transfer = world.system.NewTransfer(world.observer);
    if (move)
        transfer->MoveTree(world.from, world.to, "tree", excluded);
    else
        transfer->CopyTree(world.from, world.to, "tree", excluded);
}

void addDevicesAndKinds() {
    QTest::addColumn<bool>("otherDevice");
    QTest::addColumn<bool>("move");
    QTest::newRow("copy, same device") << false << false;
    QTest::newRow("copy, other device") << true << false;
    QTest::newRow("move, same device") << false << true;
    QTest::newRow("move, other device") << true << true;
}

} // namespace

class TestTreeTransfer final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void transfersEverything_data();
    void transfersEverything();
    void movesByOneRename();
    void leavesOutExcludedFolders_data();
    void leavesOutExcludedFolders();
    void neverTransfersAFolderIntoItself_data();
    void neverTransfersAFolderIntoItself();
    void neverReplacesWhatExists_data();
    void neverReplacesWhatExists();
    void leavesWhatItMayNotRead();
    void stopsBetweenFiles_data();
    void stopsBetweenFiles();
    void manyFilesNeedFewDescriptors();
    void givesUpWhereItIsTooDeep();
};

void TestTreeTransfer::transfersEverything_data() {
    addDevicesAndKinds();
}

void TestTreeTransfer::transfersEverything() {
    QFETCH(bool, otherDevice);
    QFETCH(bool, move);
    FileWorld world(otherDevice);
    fill(world.source / "tree");
    const Entries before = FileWorld::Tree(world.source);
    const mode_t mode = FileWorld::StatusOf(world.source / "tree/sub/deeper").st_mode;
    run(world, move);
    QVERIFY(world.observer.failures.empty());
    QVERIFY(FileWorld::Tree(world.destination) == before);
    QVERIFY(FileWorld::Tree(world.source) == (move ? Entries{} : before));
    const fs::path deeper = world.destination / "tree/sub/deeper";
    QCOMPARE(FileWorld::StatusOf(deeper).st_mode, mode);
    for (const char* folder : {"sub", "sub/deeper", "empty", "."})
        QCOMPARE(FileWorld::StatusOf(world.destination / "tree" / folder).st_mtim.tv_sec, 1'100'000'000);
    fs::permissions(deeper, fs::perms::owner_all);
}

void TestTreeTransfer::movesByOneRename() {
    FileWorld world;
    fill(world.source / "tree");
    fs::create_symlink("nowhere", world.source / "tree/dangling");
    const ino_t inode = FileWorld::StatusOf(world.source / "tree/a").st_ino;
    run(world, true);
    QCOMPARE(FileWorld::StatusOf(world.destination / "tree/a").st_ino, inode);
    QVERIFY(fs::is_symlink(world.destination / "tree/dangling"));
    QVERIFY(!fs::exists(world.source / "tree"));
}

void TestTreeTransfer::leavesOutExcludedFolders_data() {
    addDevicesAndKinds();
}

void TestTreeTransfer::leavesOutExcludedFolders() {
    QFETCH(bool, otherDevice);
    QFETCH(bool, move);
    FileWorld world(otherDevice);
    fill(world.source / "tree");
    fs::create_symlink("nowhere", world.source / "tree/dangling");
    fs::create_directory_symlink("sub", world.source / "tree/folderlink");
    QCOMPARE(::mkfifo((world.source / "tree/fifo").c_str(), 0600), 0);
    std::error_code error;
    const FileId sub = world.system.OpenFolder(world.source / "tree/sub", error)->Id();
    const FileId tree = world.system.OpenFolder(world.source / "tree", error)->Id();
    run(world, move, {tree});
    QVERIFY(FileWorld::Tree(world.destination).empty());
    QVERIFY(fs::exists(world.source / "tree/a"));
    if (move && !otherDevice)
        return; // one rename takes all: the caller names the folders on the way up from a root as well
    run(world, move, {sub});
    QVERIFY(world.observer.failures.empty());
    QVERIFY(FileWorld::Tree(world.destination) ==
            (Entries{{"tree", "/"}, {"tree/a", "in the tree"}, {"tree/empty", "/"}}));
    QCOMPARE(fs::exists(world.source / "tree/a"), !move);
    QCOMPARE(FileWorld::Read(world.source / "tree/sub/deeper/\xff name"), std::string("deep"));
    QVERIFY(fs::is_symlink(world.source / "tree/dangling") && fs::is_symlink(world.source / "tree/folderlink"));
    QVERIFY(fs::is_fifo(world.source / "tree/fifo"));
}

void TestTreeTransfer::neverTransfersAFolderIntoItself_data() {
    QTest::addColumn<QString>("into");
    QTest::addColumn<bool>("move");
    for (const char* into : {"tree", "tree/sub", "tree/sub/deeper"}) {
        QTest::addRow("copy into %s", into) << QString::fromLatin1(into) << false;
        QTest::addRow("move into %s", into) << QString::fromLatin1(into) << true;
    }
}

void TestTreeTransfer::neverTransfersAFolderIntoItself() {
    QFETCH(QString, into);
    QFETCH(bool, move);
    FileWorld world;
    fill(world.source / "tree");
    const Entries before = FileWorld::Tree(world.source);
    std::error_code error;
    world.to = world.system.OpenFolder(world.source / into.toStdString(), error);
    run(world, move);
    QVERIFY(world.observer.failures["tree"] == std::errc::invalid_argument);
    QVERIFY(FileWorld::Tree(world.source) == before);
}

void TestTreeTransfer::neverReplacesWhatExists_data() {
    addDevicesAndKinds();
}

void TestTreeTransfer::neverReplacesWhatExists() {
    QFETCH(bool, otherDevice);
    QFETCH(bool, move);
    for (const bool isFolder : {false, true}) {
        FileWorld world(otherDevice);
        fill(world.source / "tree");
        const Entries before = FileWorld::Tree(world.source);
        FileWorld::Write(isFolder ? world.destination / "tree/a" : world.destination / "tree", "kept");
        const Entries there = FileWorld::Tree(world.destination);
        run(world, move);
        QVERIFY(world.observer.failures["tree"] == std::errc::file_exists);
        QVERIFY(FileWorld::Tree(world.source) == before);
        QVERIFY(FileWorld::Tree(world.destination) == there);
    }
}

void TestTreeTransfer::leavesWhatItMayNotRead() {
    if (::geteuid() != 0)
        QSKIP("needs to change the user");
    FileWorld world(true);
    fill(world.source / "tree");
    FileWorld::Write(world.source / "tree/closed/file", "secret");
    FileWorld::Write(world.source / "tree/private", "secret");
    fs::permissions(world.source / "tree/sub/deeper", fs::perms::owner_all);
    ::chmod((world.source / "tree/private").c_str(), 0);
    for (const auto& entry : fs::recursive_directory_iterator(world.source))
        QCOMPARE(::lchown(entry.path().c_str(), entry.path().filename() == "closed" ? 0 : 65534, 0), 0);
    ::chmod((world.source / "tree/closed").c_str(), 0700);
    fs::permissions(world.destination, fs::perms::all);
    fs::permissions(world.source, fs::perms::all);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::setgid(65534) != 0 || ::setuid(65534) != 0)
            ::_exit(2);
        run(world, true);
        const auto& failures = world.observer.failures;
        const bool areAll = failures.size() == 2 && failures.contains("closed") && failures.contains("private");
        ::_exit(areAll ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    QCOMPARE(status, 0);
    QVERIFY(FileWorld::Tree(world.source) ==
            (Entries{{"tree", "/"}, {"tree/closed", "/"}, {"tree/closed/file", "secret"}, {"tree/private", "secret"}}));
    QCOMPARE(FileWorld::Read(world.destination / "tree/sub/deeper/\xff name"), std::string("deep"));
    QVERIFY(!fs::exists(world.destination / "tree/closed"));
}

void TestTreeTransfer::stopsBetweenFiles_data() {
    addDevicesAndKinds();
}

void TestTreeTransfer::stopsBetweenFiles() {
    QFETCH(bool, otherDevice);
    QFETCH(bool, move);
    if (move && !otherDevice)
        return; // one rename
    FileWorld world(otherDevice);
    for (const char* name : {"1", "2", "3", "4"})
        FileWorld::Write(world.source / "tree" / name, name);
    world.observer.filesUntilStop = 2;
    run(world, move);
    QVERIFY(FileWorld::Tree(world.destination) == (Entries{{"tree", "/"}, {"tree/1", "1"}, {"tree/2", "2"}}));
    QCOMPARE(FileWorld::Tree(world.source).size(), std::size_t{move ? 3U : 5U});
}

void TestTreeTransfer::manyFilesNeedFewDescriptors() {
    FileWorld world(true);
    Entries expected{{"tree", "/"}};
    for (int folder = 0; folder < 60; ++folder) {
        const std::string path = "tree/" + std::to_string(folder);
        expected[path] = "/";
        for (int file = 0; file < 20; ++file) {
            const std::string name = path + "/" + std::to_string(file);
            expected[name] = name;
            FileWorld::Write(world.source / name, name);
        }
    }
    const pid_t child = ::fork();
    if (child == 0) {
        const struct rlimit few { 64, 64 };
        ::setrlimit(RLIMIT_NOFILE, &few);
        run(world, true);
        ::_exit(world.observer.failures.empty() ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    QCOMPARE(status, 0);
    QVERIFY(FileWorld::Tree(world.destination) == expected);
    QVERIFY(FileWorld::Tree(world.source).empty());
}

void TestTreeTransfer::givesUpWhereItIsTooDeep() {
    FileWorld world(true);
    fs::path deep = world.source / "tree";
    for (int level = 0; level < 250; ++level)
        deep /= "d";
    FileWorld::Write(deep / "file", "kept");
    FileWorld::Write(world.source / "tree/a", "moved");
    run(world, true);
    QVERIFY(world.observer.failures["d"] == std::errc::too_many_symbolic_link_levels);
    QCOMPARE(FileWorld::Read(deep / "file"), std::string("kept"));
    QCOMPARE(FileWorld::Read(world.destination / "tree/a"), std::string("moved"));
    QVERIFY(!fs::exists(world.source / "tree/a"));
}

QTEST_GUILESS_MAIN(TestTreeTransfer)
#include "test_treetransfer.moc"

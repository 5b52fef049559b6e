#include "FileWorld.h"

#include <sys/resource.h>

using Entries = FileWorld::Entries;

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

} // namespace

class TestTreeTransfer final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void transfersEverything_data() { FileWorld::AddWays(); }
    void transfersEverything() {
        QFETCH(FileWorld::Way, way);
        FileWorld world(way.otherDevice);
        fill(world.source / "tree");
        const Entries before = FileWorld::Tree(world.source);
        const struct stat file = FileWorld::StatusOf(world.source / "tree/a");
        const mode_t mode = FileWorld::StatusOf(world.source / "tree/sub/deeper").st_mode;
        world.TransferTree(way.move);
        QVERIFY(world.observer.failures.empty());
        QVERIFY(FileWorld::Tree(world.destination) == before);
        QVERIFY(FileWorld::Tree(world.source) == (way.move ? Entries{} : before));
        if (way.IsOneRename()) // one rename, and not a byte copied
            QCOMPARE(FileWorld::StatusOf(world.destination / "tree/a").st_ino, file.st_ino);
        const fs::path deeper = world.destination / "tree/sub/deeper";
        QCOMPARE(FileWorld::StatusOf(deeper).st_mode, mode);
        for (const char* folder : {"sub", "sub/deeper", "empty", "."})
            QCOMPARE(FileWorld::StatusOf(world.destination / "tree" / folder).st_mtim.tv_sec, 1'100'000'000);
        fs::permissions(deeper, fs::perms::owner_all);
    }

    void leavesOutExcludedFolders_data() { FileWorld::AddWays(); }
    void leavesOutExcludedFolders() {
        QFETCH(FileWorld::Way, way);
        FileWorld world(way.otherDevice);
        fill(world.source / "tree");
        fs::create_directory_symlink("sub", world.source / "tree/folderlink");
        QCOMPARE(::mkfifo((world.source / "tree/fifo").c_str(), 0600), 0);
        std::error_code error;
        world.TransferTree(way.move, {world.system.OpenFolder(world.source / "tree", error)->Id()});
        QVERIFY(FileWorld::Tree(world.destination).empty());
        QVERIFY(fs::exists(world.source / "tree/a"));
        if (way.IsOneRename())
            return; // one rename takes all: the caller names the folders on the way up from a root as well
        world.TransferTree(way.move, {world.system.OpenFolder(world.source / "tree/sub", error)->Id()});
        QVERIFY(world.observer.failures.empty());
        QVERIFY(FileWorld::Tree(world.destination) ==
                (Entries{{"tree", "/"}, {"tree/a", "in the tree"}, {"tree/empty", "/"}}));
        QCOMPARE(fs::exists(world.source / "tree/a"), !way.move);
        QCOMPARE(FileWorld::Read(world.source / "tree/sub/deeper/\xff name"), std::string("deep"));
        QVERIFY(fs::is_symlink(world.source / "tree/folderlink") && fs::is_fifo(world.source / "tree/fifo"));
    }

    void neverTransfersAFolderIntoItself() {
        for (const char* into : {"tree", "tree/sub/deeper"})
            for (const bool move : {false, true}) {
                FileWorld world;
                fill(world.source / "tree");
                const Entries before = FileWorld::Tree(world.source);
                std::error_code error;
                world.to = world.system.OpenFolder(world.source / into, error);
                world.TransferTree(move);
                QVERIFY(world.observer.failures["tree"] == std::errc::invalid_argument);
                QVERIFY(FileWorld::Tree(world.source) == before);
            }
    }

    void neverReplacesWhatExists_data() { FileWorld::AddWays({"tree", "tree/a"}); }
    void neverReplacesWhatExists() {
        QFETCH(FileWorld::Way, way);
        FileWorld world(way.otherDevice);
        fill(world.source / "tree");
        FileWorld::Write(world.destination / way.kind.toStdString(), "kept");
        const Entries before = FileWorld::Tree(world.source);
        const Entries there = FileWorld::Tree(world.destination);
        world.TransferTree(way.move);
        QVERIFY(world.observer.failures["tree"] == std::errc::file_exists);
        QVERIFY(FileWorld::Tree(world.source) == before);
        QVERIFY(FileWorld::Tree(world.destination) == there);
    }

    void leavesWhatItMayNotRead() {
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
        const auto reportsBoth = [&] {
            world.TransferTree(true);
            const auto& failures = world.observer.failures;
            return failures.size() == 2 && failures.contains("closed") && failures.contains("private") ? 0 : 1;
        };
        QCOMPARE(FileWorld::InChild(reportsBoth, true), 0);
        QVERIFY(
            FileWorld::Tree(world.source) ==
            (Entries{{"tree", "/"}, {"tree/closed", "/"}, {"tree/closed/file", "secret"}, {"tree/private", "secret"}}));
        QCOMPARE(FileWorld::Read(world.destination / "tree/sub/deeper/\xff name"), std::string("deep"));
        QVERIFY(!fs::exists(world.destination / "tree/closed"));
    }

    void manyFilesNeedFewDescriptors() {
        FileWorld world(true);
        for (int file = 0; file < 1200; ++file)
            FileWorld::Write(world.source / "tree" / std::to_string(file % 60) / std::to_string(file),
                             std::to_string(file));
        const Entries expected = FileWorld::Tree(world.source);
        const auto transfer = [&] {
            const struct rlimit few { 64, 64 };
            ::setrlimit(RLIMIT_NOFILE, &few);
            world.TransferTree(true);
            return world.observer.failures.empty() ? 0 : 1;
        };
        QCOMPARE(FileWorld::InChild(transfer), 0);
        QVERIFY(FileWorld::Tree(world.destination) == expected);
        QVERIFY(FileWorld::Tree(world.source).empty());
    }

    /// What was stopped or killed is finished whole by the next run, and what a user put there meanwhile is left alone.
    void finishesWhatWasStopped() {
        for (const bool move : {true, false}) {
            FileWorld world(true);
            for (const char* name : {"1", "2", "3", "4", "sub/5"})
                FileWorld::Write(world.source / "tree" / name, name);
            const Entries before = FileWorld::Tree(world.source);
            world.observer.filesUntilStop = 2;
            world.TransferTree(move);
            const auto lacks = [&world](const char* name) { return !fs::exists(world.destination / "tree" / name); };
            QVERIFY(!lacks("2") && lacks("3") && lacks("4") && lacks("sub"));
            QCOMPARE(fs::exists(world.source / "tree/1"), !move);
            FileWorld::Write(world.destination / "tree/3", "a user's");
            FileWorld::Write(world.source / "tree/2", "2"); // as if the run had ended before it could be removed
            world.TransferTree(move);
            QVERIFY(world.observer.failures.empty());
            Entries expected = before;
            expected["tree/3"] = "a user's";
            QVERIFY(FileWorld::Tree(world.destination) == expected);
            QVERIFY(FileWorld::Tree(world.source) == (move ? Entries{{"tree", "/"}, {"tree/3", "3"}} : before));
            world.TransferTree(move);
            QVERIFY(world.observer.failures["tree"] == std::errc::file_exists);
        }
    }

    /// What is read ahead is what a listing gives, or nothing, and few folders are held open for it.
    void readsAhead() {
        FileWorld world;
        const auto openDescriptors = [] {
            return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
        };
        for (int number = 0; number < 100; ++number)
            FileWorld::Write(world.source / std::to_string(number) / "file", "1");
        fs::copy(world.source, world.destination, fs::copy_options::recursive);
        std::vector<FolderEntry> folders;
        QVERIFY(!world.from->List(folders));
        fs::remove_all(world.source / folders.back().name);
        const auto before = openDescriptors();
        std::vector<std::unique_ptr<ReadAhead>> orders;
        for (const FolderEntry& folder : folders)
            orders.push_back(world.system.Begin({world.from, folder, world.to, folders.size() % 2 == 0}));
        int taken = 0;
        for (std::size_t at = folders.size() - 20; at < folders.size(); ++at) {
            const auto read = orders[at]->Take([] {});
            taken += read ? 1 : 0;
            if (read)
                QVERIFY(read->entries.size() == 1 && read->entries[0].name == "file" && read->destination);
        }
        QVERIFY(taken < 10 && openDescriptors() <= before + 20);
        QVERIFY(!world.system.Begin({world.from, folders.back(), world.to})->Take([] {}));
    }

    void givesUpWhereItIsTooDeep() {
        FileWorld world(true);
        fs::path deep = world.source / "tree";
        fs::create_directory(deep);
        for (int level = 0; level < 1'050; ++level)
            fs::create_directory(deep /= "d");
        FileWorld::Write(deep / "file", "kept");
        FileWorld::Write(world.source / "tree/a", "moved");
        world.TransferTree(true);
        QVERIFY(world.observer.failures["d"] == std::errc::too_many_symbolic_link_levels);
        QCOMPARE(FileWorld::Read(deep / "file"), std::string("kept"));
        QCOMPARE(FileWorld::Read(world.destination / "tree/a"), std::string("moved"));
        QVERIFY(!fs::exists(world.source / "tree/a"));
    }
};

QTEST_GUILESS_MAIN(TestTreeTransfer)
#include "test_treetransfer.moc"

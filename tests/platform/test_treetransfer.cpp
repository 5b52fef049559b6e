#include "FileWorld.h"

using Entries = FileWorld::Entries;

class TestTreeTransfer final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void transfersEverything_data() { FileWorld::AddWays(); }
    void transfersEverything() {
        QFETCH(FileWorld::Way, way);
        FileWorld world(way.otherDevice);
        FileWorld::FillTree(world.source / "tree");
        const Entries before = FileWorld::Tree(world.source);
        const auto idOfFile = [&world](const std::shared_ptr<Folder>& above) {
            std::error_code error;
            const auto tree = above->OpenChild({"tree", above->Stat("tree", error).value_or(FileFacts{})}, error);
            return tree ? FileWorld::IdOf(*tree, "a") : FileId{};
        };
        const FileId file = idOfFile(world.from);
        const fs::perms mode = fs::status(world.source / "tree/sub/deeper").permissions();
        const auto time = fs::last_write_time(world.source / "tree");
        world.TransferTree(way.move);
        QVERIFY(world.observer.failures.empty());
        QVERIFY(FileWorld::Tree(world.destination) == before);
        QVERIFY(FileWorld::Tree(world.source) == (way.move ? Entries{} : before));
        if (way.IsOneRename()) // one rename, and not a byte copied
            QVERIFY(idOfFile(world.to) == file);
        const fs::path deeper = world.destination / "tree/sub/deeper";
        QVERIFY(fs::status(deeper).permissions() == mode);
        for (const char* folder : {"sub", "sub/deeper", "empty", "."})
            QVERIFY(fs::last_write_time(world.destination / "tree" / folder) == time);
        fs::permissions(deeper, fs::perms::owner_all);
    }

    void leavesOutExcludedFolders_data() { FileWorld::AddWays(); }
    void leavesOutExcludedFolders() {
        QFETCH(FileWorld::Way, way);
        FileWorld world(way.otherDevice);
        FileWorld::FillTree(world.source / "tree");
        for (const char* kind : {"folder link", "fifo"})
            if (FileWorld::CanMake(kind))
                FileWorld::Make(world.source / "tree" / kind, kind);
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
        QCOMPARE(FileWorld::Read(world.source / "tree/sub/deeper" / FileWorld::OddName()), std::string("deep"));
        QCOMPARE(fs::is_symlink(world.source / "tree/folder link"), FileWorld::CanMake("folder link"));
        QCOMPARE(fs::is_fifo(world.source / "tree/fifo"), FileWorld::CanMake("fifo"));
    }

    void neverTransfersAFolderIntoItself() {
        for (const char* into : {"tree", "tree/sub/deeper"})
            for (const bool move : {false, true}) {
                FileWorld world;
                FileWorld::FillTree(world.source / "tree");
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
        FileWorld::FillTree(world.source / "tree");
        FileWorld::Write(world.destination / way.kind.toStdString(), "kept");
        const Entries before = FileWorld::Tree(world.source);
        const Entries there = FileWorld::Tree(world.destination);
        world.TransferTree(way.move);
        QVERIFY(world.observer.failures["tree"] == std::errc::file_exists);
        QVERIFY(FileWorld::Tree(world.source) == before);
        QVERIFY(FileWorld::Tree(world.destination) == there);
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
};

QTEST_GUILESS_MAIN(TestTreeTransfer)
#include "test_treetransfer.moc"

#include "FileWorld.h"

#include <algorithm>

namespace {

const std::string kOld = "old";
const std::string kNew = "something new";

} // namespace

class TestFileTransfer final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void copiesContentAndAttributes_data() { FileWorld::AddWays(); }
    void copiesContentAndAttributes() {
        QFETCH(bool, otherDevice);
        QFETCH(bool, move);
        const std::pair<std::size_t, mode_t> files[] = {{0, 0644}, {9'000'001, 0440}, {70'000, 0000}, {1, 06755}};
        for (const auto& [size, mode] : files) {
            if (mode == 0 && ::geteuid() != 0)
                continue; // only an administrator reads such a file
            FileWorld world(otherDevice);
            std::string text(size, ' ');
            std::generate(text.begin(), text.end(),
                          [n = 0U]() mutable { return static_cast<char>((n++ * 2654435761U) >> 24U); });
            const fs::path name = "n\xe4me with \\ and \n";
            FileWorld::Write(world.source / name, text);
            ::setxattr((world.source / name).c_str(), "user.colour", "blue", 4, 0);
            ::chmod((world.source / name).c_str(), mode);
            FileWorld::SetTime(world.source / name, 1'234'567'890);
            const struct stat before = FileWorld::StatusOf(world.source / name);
            world.Transfer(move, name);
            QVERIFY(world.observer.failures.empty());
            QVERIFY(FileWorld::Tree(world.destination) == (FileWorld::Entries{{name.native(), text}}));
            QCOMPARE(fs::exists(world.source / name), !move);
            const struct stat after = FileWorld::StatusOf(world.destination / name);
            QCOMPARE(after.st_mode, before.st_mode);
            QCOMPARE(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
            QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
            std::array<char, 16> value{};
            const ssize_t length =
                ::getxattr((world.destination / name).c_str(), "user.colour", value.data(), value.size());
            QVERIFY((length == 4 && std::string(value.data(), 4) == "blue") || otherDevice);
        }
    }

    void theLastOfOneNameWins() {
        for (const bool move : {false, true}) {
            FileWorld world;
            const auto transfer = world.system.NewTransfer(world.observer);
            for (const char* text : {"first", "second", "third"}) {
                FileWorld::Write(world.source / "file", text);
                transfer->Copy(world.File("file"));
            }
            FileWorld::Write(world.source / "another", "moved");
            fs::rename(world.source / "another", world.source / "file");
            if (move)
                transfer->Move(world.File("file")); // the only one left: no staged copy may come later
            transfer->Commit();
            QCOMPARE(FileWorld::Read(world.destination / "file"), std::string(move ? "moved" : "third"));
            QVERIFY(world.observer.failures.empty());
        }
    }

    void meetsWhatStandsAtTheDestination_data() {
        FileWorld::AddWays({"file", "link", "dangling link", "folder", "folder link", "fifo"});
    }
    void meetsWhatStandsAtTheDestination() {
        QFETCH(QByteArray, kind);
        QFETCH(bool, otherDevice);
        QFETCH(bool, move);
        FileWorld world(otherDevice);
        const fs::path place = world.destination / "name";
        FileWorld::Write(world.source / "name", kNew);
        FileWorld::Make(place, kind);
        const struct stat before = FileWorld::StatusOf(place);
        world.Transfer(move, "name");
        if (kind == "file" || kind == "link") {
            QVERIFY(world.observer.failures.empty());
            QVERIFY(S_ISREG(FileWorld::StatusOf(place).st_mode));
            QCOMPARE(FileWorld::Read(place), kNew);
            QCOMPARE(fs::exists(world.source / "name"), !move);
            QVERIFY(kind == "file" || FileWorld::Read(world.destination / "target") == kOld); // not written through
        } else {
            QVERIFY(world.observer.failures["name"] ==
                    (kind == "folder" ? std::errc::is_a_directory : std::errc::file_exists));
            QCOMPARE(FileWorld::StatusOf(place).st_ino, before.st_ino);
            QCOMPARE(FileWorld::Read(world.source / "name"), kNew);
        }
        const auto entries = std::distance(fs::directory_iterator(world.destination), fs::directory_iterator());
        QCOMPARE(entries, std::ptrdiff_t{kind == "link" ? 2 : 1}); // no temporary is left
    }

    void leavesASingleFileAlone() {
        for (const bool symbolic : {false, true})
            for (const bool move : {false, true}) {
                FileWorld world;
                FileWorld::Write(world.destination / "file", kOld);
                if (symbolic)
                    fs::create_symlink(world.destination / "file", world.source / "file");
                else
                    fs::create_hard_link(world.destination / "file", world.source / "file");
                const ino_t inode = FileWorld::StatusOf(world.destination / "file").st_ino;
                TransferFile onItself = world.File("file");
                onItself.source = onItself.destination;
                world.Transfer(move, {world.File("file"), onItself});
                QVERIFY(world.observer.failures.empty());
                QVERIFY(fs::exists(world.source / "file"));
                QCOMPARE(FileWorld::StatusOf(world.destination / "file").st_ino, inode);
                QCOMPARE(FileWorld::Read(world.destination / "file"), kOld);
            }
    }

    void discardsACopyOfAChangingSource_data() { FileWorld::AddWays({"write", "append", "truncate", "replace"}); }
    void discardsACopyOfAChangingSource() {
        QFETCH(QByteArray, kind);
        QFETCH(bool, otherDevice);
        QFETCH(bool, move);
        if (move && !otherDevice)
            return; // one rename copies nothing
        FileWorld world(otherDevice);
        const fs::path file = world.source / "large";
        FileWorld::Write(file, std::string(12'000'000, 'a'));
        FileWorld::Write(world.destination / "large", kOld);
        world.observer.onProgress = [&, isDone = false]() mutable {
            if (std::exchange(isDone, true))
                return;
            if (kind == "write")
                std::fstream(file, std::ios::in | std::ios::out).seekp(11'000'000) << "changed";
            else if (kind == "append")
                std::ofstream(file, std::ios::app) << "more";
            else if (kind == "truncate")
                fs::resize_file(file, 5'000'000);
            else
                std::ofstream(file, std::ios::trunc) << "another";
        };
        world.Transfer(move, "large");
        QVERIFY(world.observer.failures["large"] == std::errc::resource_unavailable_try_again);
        QVERIFY(FileWorld::Tree(world.destination) == (FileWorld::Entries{{"large", kOld}}));
        QVERIFY(fs::exists(file));
    }

    void refusesASourceThatIsNoLongerTheListedFile_data() {
        FileWorld::AddWays({"gone", "fifo", "folder", "link", "touched"});
    }
    void refusesASourceThatIsNoLongerTheListedFile() {
        QFETCH(QByteArray, kind);
        QFETCH(bool, otherDevice);
        QFETCH(bool, move);
        FileWorld world(otherDevice);
        const fs::path file = world.source / "file";
        FileWorld::Write(file, kOld); // as large and as old as the link's target
        const TransferFile listed = world.File("file");
        if (kind == "touched")
            FileWorld::SetTime(file, 5);
        else
            fs::rename(file, world.source / "aside");
        FileWorld::Make(file, kind);
        const auto before = FileWorld::Tree(world.source);
        world.Transfer(move, {listed});
        QVERIFY(world.observer.failures["file"]);
        QVERIFY(FileWorld::Tree(world.destination).empty());
        QVERIFY(FileWorld::Tree(world.source) == before);
    }

    void movesALinkAsItsFile() {
        for (const bool otherDevice : {false, true}) {
            FileWorld world(otherDevice);
            FileWorld::Make(world.source / "link", "link");
            world.Transfer(true, "link");
            QVERIFY(world.observer.failures.empty());
            QVERIFY(S_ISREG(FileWorld::StatusOf(world.destination / "link").st_mode));
            QCOMPARE(FileWorld::Read(world.destination / "link"), kOld);
            QCOMPARE(FileWorld::StatusOf(world.destination / "link").st_mtim.tv_sec, time_t{1'000'000'000});
            QVERIFY(!fs::is_symlink(world.source / "link")); // the link has moved, the file it led to stays
            QCOMPARE(FileWorld::Read(world.source / "target"), kOld);
        }
    }

    void keepsASourceChangedAfterItsCopy() {
        FileWorld world(true);
        FileWorld::Write(world.source / "changed", kOld);
        FileWorld::Write(world.source / "still", kOld);
        const auto transfer = world.system.NewTransfer(world.observer);
        transfer->Move(world.File("changed"));
        transfer->Move(world.File("still"));
        FileWorld::Write(world.source / "changed", kNew, 1'500'000'000);
        transfer->Commit();
        QCOMPARE(FileWorld::Read(world.source / "changed"), kNew);
        QVERIFY(world.observer.failures["changed"] == std::errc::resource_unavailable_try_again);
        QVERIFY(!fs::exists(world.source / "still"));
        QCOMPARE(FileWorld::Read(world.destination / "still"), kOld);
    }

    void keepsHoles() {
        for (const bool otherDevice : {false, true}) {
            FileWorld world(otherDevice);
            const fs::path file = world.source / "sparse";
            FileWorld::Write(file, "begin");
            fs::resize_file(file, 50'000'000); // the end is a hole as well
            std::fstream(file, std::ios::in | std::ios::out).seekp(20'000'000) << "middle";
            world.Transfer(false, "sparse");
            QVERIFY(world.observer.failures.empty());
            QVERIFY(FileWorld::Read(world.destination / "sparse") == FileWorld::Read(file));
            QVERIFY(FileWorld::StatusOf(world.destination / "sparse").st_blocks < 2'000);
        }
    }
};

QTEST_GUILESS_MAIN(TestFileTransfer)
#include "test_filetransfer.moc"

// Single files and single folders: what arrives, what stays, and what is refused.
#include "FileWorld.h"
#include "Table.h"
#include "TemporaryName.h"

#include <algorithm>

namespace {

const std::string oldText = "old";
const std::string newText = "something new";

} // namespace

class TestFileTransfer final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theLastOfOneNameWins() {
        for (const bool move : {false, true}) {
            FileWorld world;
            const auto transfer = world.system.NewTransfer(world.observer, nullptr);
            std::optional<FileFacts> staged;
            const auto next = [&] {
                TransferFile file = world.File("file");
                file.replaced = staged;
                staged = file.facts;
                staged->id = {}; // nobody knows it yet
                return file;
            };
            for (const char* text : {"first", "second", "third"}) {
                FileWorld::Write(world.source / "file", text);
                QVERIFY(transfer->Copy(next()));
            }
            FileWorld::Write(world.source / "another", "moved");
            fs::rename(world.source / "another", world.source / "file");
            if (move)
                QVERIFY(transfer->Move(next())); // the only one left: no staged copy may come later
            transfer->Commit();
            QCOMPARE(FileWorld::Read(world.destination / "file"), std::string(move ? "moved" : "third"));
            QVERIFY(world.observer.failures.empty());
        }
    }

    void placesOnlyOverWhatWasDecided_data() { FileWorld::AddWays({"appears", "changes", "is replaced"}); }
    void placesOnlyOverWhatWasDecided() {
        QFETCH(FileWorld::Way, way);
        const bool isAtOnce = way.IsOneRename(); // a rename waits for nothing
        for (const bool afterStaging : {false, true}) {
            if (afterStaging && isAtOnce)
                continue;
            FileWorld world(way.otherDevice);
            FileWorld::Write(world.source / "file", "source");
            if (way.kind != "appears")
                FileWorld::Write(world.destination / "file", "old");
            const TransferFile file = world.File("file");
            const auto change = [&] {
                FileWorld::Write(world.destination / "other", "newer", 1'500'000'000);
                if (way.kind == "is replaced")
                    fs::rename(world.destination / "other", world.destination / "file");
                else
                    FileWorld::Write(world.destination / "file", "newer", 1'500'000'000);
            };
            {
                const auto transfer = world.system.NewTransfer(world.observer, nullptr);
                if (!afterStaging)
                    change();
                std::ignore = way.move ? transfer->Move(file) : transfer->Copy(file);
                if (afterStaging)
                    change();
            }
            QVERIFY(world.observer.failures["file"] == std::errc::resource_unavailable_try_again);
            QCOMPARE(FileWorld::Read(world.destination / "file"), std::string("newer"));
            QCOMPARE(FileWorld::Read(world.source / "file"), std::string("source"));
        }
    }

    void meetsWhatStandsAtTheDestination_data() {
        FileWorld::AddWays({"file", "link", "dangling link", "folder", "folder link", "fifo"});
    }
    void meetsWhatStandsAtTheDestination() {
        QFETCH(FileWorld::Way, way);
        FileWorld world(way.otherDevice);
        const fs::path place = world.destination / "name";
        FileWorld::Write(world.source / "name", newText);
        FileWorld::Make(place, way.kind);
        const FileId before = FileWorld::IdOf(*world.to, "name");
        world.Transfer(way.move, "name");
        if (way.kind == "file" || way.kind == "link") {
            QVERIFY(world.observer.failures.empty() && fs::is_regular_file(fs::symlink_status(place)));
            QCOMPARE(FileWorld::Read(place), newText);
            QCOMPARE(fs::exists(world.source / "name"), !way.move);
            QVERIFY(way.kind == "file" ||
                    FileWorld::Read(world.destination / "target") == oldText); // not written through
        } else {
            QVERIFY(world.observer.failures["name"] ==
                    (way.kind == "folder" ? std::errc::is_a_directory : std::errc::file_exists));
            QVERIFY(FileWorld::IdOf(*world.to, "name") == before);
            QCOMPARE(FileWorld::Read(world.source / "name"), newText);
        }
        const auto entries = std::distance(fs::directory_iterator(world.destination), fs::directory_iterator());
        QCOMPARE(entries, std::ptrdiff_t{way.kind == "link" ? 2 : 1}); // no temporary is left
    }

    void discardsAnUnfinishedCopy_data() {
        FileWorld::AddWays({"write", "rewrite", "append", "truncate", "replace", "give up"});
    }
    void discardsAnUnfinishedCopy() {
        QFETCH(FileWorld::Way, way);
        if (way.IsOneRename())
            return; // one rename copies nothing
        FileWorld world(way.otherDevice);
        const fs::path file = world.source / "large";
        FileWorld::Write(file, std::string(12'000'000, 'a'));
        FileWorld::Write(world.destination / "large", oldText);
        world.observer.onProgress = [&, isDone = false]() mutable {
            if (std::exchange(isDone, true))
                return;
            if (way.kind.endsWith("write"))
                std::fstream(file, std::ios::in | std::ios::out).seekp(11'000'000) << "changed";
            if (way.kind == "rewrite") // and hides it
                FileWorld::SetTime(file, 1'000'000'000);
            if (way.kind == "append")
                std::ofstream(file, std::ios::app) << "more";
            else if (way.kind == "truncate")
                fs::resize_file(file, 5'000'000);
            else if (way.kind == "replace")
                std::ofstream(file, std::ios::trunc) << "another";
            world.observer.givesUp = way.kind == "give up";
        };
        world.Transfer(way.move, "large");
        QVERIFY(world.observer.failures["large"] ==
                (way.kind == "give up" ? std::errc::operation_canceled : std::errc::resource_unavailable_try_again));
        QVERIFY(FileWorld::Tree(world.destination) == (FileWorld::Entries{{"large", oldText}}));
        QVERIFY(fs::exists(file));
    }

    void refusesASourceThatIsNoLongerTheListedFile_data() {
        FileWorld::AddWays({"gone", "fifo", "folder", "link", "touched"});
    }
    void refusesASourceThatIsNoLongerTheListedFile() {
        QFETCH(FileWorld::Way, way);
        FileWorld world(way.otherDevice);
        const fs::path file = world.source / "file";
        FileWorld::Write(file, oldText); // as large and as old as the link's target
        const TransferFile listed = world.File("file");
        if (way.kind == "touched")
            FileWorld::SetTime(file, 5);
        else
            fs::rename(file, world.source / "aside");
        FileWorld::Make(file, way.kind);
        const auto before = FileWorld::Tree(world.source);
        world.Transfer(way.move, {listed});
        QVERIFY(world.observer.failures["file"]);
        QVERIFY(FileWorld::Tree(world.destination).empty());
        QVERIFY(FileWorld::Tree(world.source) == before);
    }

    void keepsASourceChangedAfterItsCopy() {
        FileWorld world(true);
        for (const char* name : {"changed", "rewritten", "still", "locked", "hard"})
            FileWorld::Write(world.source / name, oldText);
        fs::create_hard_link(world.source / "hard", world.source / "link");
        const auto transfer = world.system.NewTransfer(world.observer, nullptr);
        for (const char* name : {"changed", "rewritten", "still", "locked", "hard", "link"})
            QVERIFY(transfer->Move(world.File(name)));
        FileWorld::Write(world.source / "changed", newText, 1'500'000'000);
        FileWorld::Write(world.source / "rewritten", std::string(oldText.size(), 'r')); // with its old time
        if (FileWorld::CanMake("locked"))
            fs::permissions(world.source / "locked", fs::perms::owner_read);
        transfer->Commit();
        QVERIFY(FileWorld::Tree(world.source) ==
                (FileWorld::Entries{{"changed", newText}, {"rewritten", std::string(oldText.size(), 'r')}}));
        for (const char* name : {"changed", "rewritten"})
            QVERIFY(world.observer.failures[name] == std::errc::resource_unavailable_try_again);
        QCOMPARE(world.observer.failures.size(), std::size_t{2});
        for (const char* name : {"still", "locked", "hard", "link"})
            QCOMPARE(FileWorld::Read(world.destination / name), oldText);
    }

    void refusesNamesThatLeadElsewhere() {
        FileWorld world;
        FileWorld::Write(world.source.parent_path() / "outside", "kept");
        FileWorld::Write(world.source / "sub/deeper/file", "");
        if (FileWorld::CanMake("folder link"))
            fs::create_directory_symlink("sub", world.source / "link");
        const auto before = FileWorld::Tree(world.source.parent_path());
        std::error_code error;
        for (const fs::path name : {"../outside", "..", ".", "", "sub/../../outside", "sub/deeper"}) {
            QVERIFY(world.from->DeleteFile({name, world.File("sub").facts}));
            QVERIFY(world.from->DeleteEmptyFolder(name));
            QVERIFY(!world.from->OpenChild({name, world.File("sub").facts}, error) && error);
        }
        QVERIFY(!world.from->OpenChild({"link", world.File("sub").facts}, error) && error);
        QVERIFY(world.from->DeleteFile({"sub", world.File("sub").facts}));
        QVERIFY(world.from->DeleteEmptyFolder("sub") == std::errc::directory_not_empty);
        QVERIFY(FileWorld::Tree(world.source.parent_path()) == before);
    }

    void removesLeftoversOfDeadProcessesOnly() {
        FileWorld world;
        const ProcessMark own = ProcessMark::OfThisProcess();
        ProcessMark dead = own;
        dead.process = FileWorld::DeadProcess();
        ProcessMark reused = own;
        ++reused.startTicks;
        ProcessMark rebooted = own;
        ++rebooted.boot;
        ProcessMark foreign = dead;
        ++foreign.machine;
        for (const ProcessMark& mark : {own, dead, reused, rebooted, foreign})
            FileWorld::Write(world.destination / MakeTemporaryName(mark), "half", 1);
        const std::string folder = MakeTemporaryName(dead);
        fs::create_directory(world.destination / folder);
        // A user's own files, however similar.
        const std::string name = MakeTemporaryName(dead);
        const std::set<std::string> others = {name + "x", name.substr(1), ".kalvenor-.tmp", ".kalvenor-1-2-3-4-5.tmp"};
        for (const std::string& other : others)
            FileWorld::Write(world.destination / other, "");
        std::vector<FolderEntry> entries;
        QVERIFY(!world.to->List(entries));
        QCOMPARE(entries.size(), others.size());
        world.to->RemoveLeftovers();
        const FileWorld::Entries left = FileWorld::Tree(world.destination);
        for (const auto& [entry, content] : left) {
            const auto maker = MakerOfTemporary(entry);
            QVERIFY(others.contains(entry) || entry == folder || *maker == own || *maker == foreign);
        }
        QCOMPARE(left.size(), others.size() + 3);
    }
};

QTEST_GUILESS_MAIN(TestFileTransfer)
#include "test_filetransfer.moc"

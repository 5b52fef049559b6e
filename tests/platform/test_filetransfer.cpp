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
    void copiesContentAndAttributes_data() { FileWorld::AddWays(); }
    void copiesContentAndAttributes() {
        QFETCH(FileWorld::Way, way);
        for (const auto& [size, mode] : {std::pair(0U, 0644U), {9'000'001U, 0440U}, {70'000U, 0000U}, {1U, 06755U}}) {
            if (mode == 0 && ::geteuid() != 0)
                continue; // only an administrator reads such a file
            FileWorld world(way.otherDevice);
            std::string text(size, ' ');
            std::generate(text.begin(), text.end(),
                          [n = 0U]() mutable { return static_cast<char>((n++ * 2654435761U) >> 24U); });
            const fs::path name = "n\xe4me with \\ and \n";
            FileWorld::Write(world.source / name, text);
            FileWorld::SetAttribute(world.source / name, "user.colour", "blue");
            ::chmod((world.source / name).c_str(), mode);
            FileWorld::SetTime(world.source / name, 1'234'567'890);
            const struct stat before = FileWorld::StatusOf(world.source / name);
            const fs::file_time_type time = fs::last_write_time(world.source / name);
            world.Transfer(way.move, name);
            QVERIFY(world.observer.failures.empty());
            QVERIFY(FileWorld::Tree(world.destination) == (FileWorld::Entries{{name.native(), text}}));
            QCOMPARE(fs::exists(world.source / name), !way.move);
            const struct stat after = FileWorld::StatusOf(world.destination / name);
            QCOMPARE(after.st_mode, before.st_mode);
            QVERIFY(fs::last_write_time(world.destination / name) == time);
            QVERIFY(FileWorld::Attribute(world.destination / name, "user.colour") == "blue" || way.otherDevice);
        }
    }

    void copiesOwnerAndRights_data() {
        // asNobody: who owns the source then, but is not in its group 2001
        // list: what the source's access list gives its group; -1: it has none
        const Table<bool, int, int, QByteArray, int, int> row;
        row("root", false, 06755, -1, QByteArray(), 06755, -1);
        row("root, group of the folder", false, 0640, -1, "group", 0640, -1);
        row("root, list of the folder", false, 0640, -1, "list", 0640, -1);
        row("root, two lists", false, 0674, 7, "list", 0674, 7);
        // Another group must not read what this one could.
        row("own group", true, 0640, -1, QByteArray(), 0600, -1);
        row("group of the folder", true, 0640, -1, "group", 0600, -1);
        row("list of the folder", true, 0664, -1, "list", 0644, -1);
        row("programs", true, 06775, -1, "group", 04755, -1);
        row("list of the source", true, 0674, 7, "group", 0674, 4);
    }
    void copiesOwnerAndRights() {
        const auto [asNobody, mode, list, folder, modeAfter, listAfter] =
            Table<bool, int, int, QByteArray, int, int>::Current();
        if (::geteuid() != 0)
            QSKIP("needs to change the user");
        const uid_t owner = asNobody ? 65534 : 1001;
        const std::string given = list < 0 ? std::string() : FileWorld::AccessList(static_cast<char>(list));
        FileWorld world;
        FileWorld::Write(world.source / "file", newText);
        fs::create_directory(world.source / "tree");
        for (const fs::path& path : {world.source / "file", world.source / "tree"}) {
            QCOMPARE(::chown(path.c_str(), owner, 2001), 0);
            QCOMPARE(::chmod(path.c_str(), static_cast<mode_t>(mode)), 0);
            if (list >= 0 && !FileWorld::SetAttribute(path, FileWorld::OwnList, given))
                QSKIP("the file system has no access lists");
        }
        QCOMPARE(::chown(world.destination.c_str(), 0, 3001), 0);
        QCOMPARE(::chmod(world.destination.c_str(), folder == "group" ? 02777 : 0777), 0);
        fs::permissions(world.source.parent_path(), fs::perms(0755));
        if (folder == "list" &&
            !FileWorld::SetAttribute(world.destination, FileWorld::DefaultList, FileWorld::AccessList(7)))
            QSKIP("the file system has no access lists");
        const auto copies = [&] {
            ::umask(0);
            world.Transfer(false, "file");
            world.TransferTree(false);
            return world.observer.failures.empty() ? 0 : 1;
        };
        QCOMPARE(FileWorld::InChild(copies, asNobody), 0);
        for (const fs::path& path : {world.destination / "file", world.destination / "tree"}) {
            const struct stat status = FileWorld::StatusOf(path);
            QCOMPARE(status.st_uid, owner);
            QCOMPARE(status.st_gid, gid_t{!asNobody ? 2001U : folder == "group" ? 3001U : 65534U});
            QCOMPARE(static_cast<int>(status.st_mode & 07777U), modeAfter);
            QVERIFY(FileWorld::Attribute(path, FileWorld::OwnList) ==
                    (listAfter < 0 ? std::string() : FileWorld::AccessList(static_cast<char>(listAfter))));
            QVERIFY(FileWorld::Attribute(path, FileWorld::DefaultList).empty());
        }
    }

    void theLastOfOneNameWins() {
        for (const bool move : {false, true}) {
            FileWorld world;
            const auto transfer = world.system.NewTransfer(world.observer);
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
                const auto transfer = world.system.NewTransfer(world.observer);
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
        const struct stat before = FileWorld::StatusOf(place);
        world.Transfer(way.move, "name");
        if (way.kind == "file" || way.kind == "link") {
            QVERIFY(world.observer.failures.empty() && S_ISREG(FileWorld::StatusOf(place).st_mode));
            QCOMPARE(FileWorld::Read(place), newText);
            QCOMPARE(fs::exists(world.source / "name"), !way.move);
            QVERIFY(way.kind == "file" ||
                    FileWorld::Read(world.destination / "target") == oldText); // not written through
        } else {
            QVERIFY(world.observer.failures["name"] ==
                    (way.kind == "folder" ? std::errc::is_a_directory : std::errc::file_exists));
            QCOMPARE(FileWorld::StatusOf(place).st_ino, before.st_ino);
            QCOMPARE(FileWorld::Read(world.source / "name"), newText);
        }
        const auto entries = std::distance(fs::directory_iterator(world.destination), fs::directory_iterator());
        QCOMPARE(entries, std::ptrdiff_t{way.kind == "link" ? 2 : 1}); // no temporary is left
    }

    void leavesASingleFileAlone() {
        for (const bool symbolic : {false, true})
            for (const bool move : {false, true}) {
                FileWorld world;
                FileWorld::Write(world.destination / "file", oldText);
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
                QCOMPARE(FileWorld::Read(world.destination / "file"), oldText);
            }
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

    void movesALinkAsItsFile() {
        for (const bool otherDevice : {false, true})
            for (const bool withTarget : {false, true}) {
                FileWorld world(otherDevice);
                FileWorld::Make(world.source / "link", "link");
                std::vector<TransferFile> files{world.File("link")};
                if (withTarget)
                    files.push_back(world.File("target"));
                world.Transfer(true, files);
                QVERIFY(world.observer.failures.empty());
                QVERIFY(S_ISREG(FileWorld::StatusOf(world.destination / "link").st_mode));
                QCOMPARE(FileWorld::Read(world.destination / "link"), oldText);
                QCOMPARE(FileWorld::StatusOf(world.destination / "link").st_mtim.tv_sec, time_t{1'000'000'000});
                QVERIFY(!fs::is_symlink(world.source / "link"));
                QCOMPARE(fs::exists(world.source / "target"), !withTarget); // else the file it led to stays
                QCOMPARE(FileWorld::Read((withTarget ? world.destination : world.source) / "target"), oldText);
            }
    }

    void keepsASourceChangedAfterItsCopy() {
        FileWorld world(true);
        for (const char* name : {"changed", "rewritten", "still", "locked", "hard"})
            FileWorld::Write(world.source / name, oldText);
        fs::create_hard_link(world.source / "hard", world.source / "link");
        const auto transfer = world.system.NewTransfer(world.observer);
        for (const char* name : {"changed", "rewritten", "still", "locked", "hard", "link"})
            QVERIFY(transfer->Move(world.File(name)));
        FileWorld::Write(world.source / "changed", newText, 1'500'000'000);
        FileWorld::Write(world.source / "rewritten", std::string(oldText.size(), 'r')); // with its old time
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

    void refusesNamesThatLeadElsewhere() {
        FileWorld world;
        FileWorld::Write(world.source.parent_path() / "outside", "kept");
        FileWorld::Write(world.source / "sub/deeper/file", "");
        fs::create_symlink("sub", world.source / "link");
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
        dead.process = ::fork();
        if (dead.process == 0)
            ::_exit(0);
        ::waitpid(dead.process, nullptr, 0);
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

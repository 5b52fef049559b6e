// What files and folders keep on Linux only: owner, rights, links, holes; and the limits of the system.
#include "FileWorld.h"
#include "Table.h"

#include <sys/resource.h>

namespace {

using Entries = FileWorld::Entries;

const std::string oldText = "old";
const std::string newText = "something new";

} // namespace

class TestLinuxTransfer final : public QObject {
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

    void leavesWhatItMayNotRead() {
        if (::geteuid() != 0)
            QSKIP("needs to change the user");
        FileWorld world(true);
        FileWorld::FillTree(world.source / "tree");
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
        QCOMPARE(FileWorld::Read(world.destination / "tree/sub/deeper" / FileWorld::OddName()), std::string("deep"));
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

QTEST_GUILESS_MAIN(TestLinuxTransfer)
#include "test_linuxtransfer.moc"

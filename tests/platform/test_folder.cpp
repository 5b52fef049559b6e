#include "FileWorld.h"
#include "TemporaryName.h"

class TestFolder final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void listsKindsInByteOrder() {
        FileWorld world;
        FileWorld::Write(world.source / "b", "12345");
        FileWorld::Write(world.source / "a\xff\xfe", ""); // no valid text
        FileWorld::Write(world.source / ".hidden", "");
        fs::create_directory(world.source / "C");
        fs::create_symlink("C", world.source / "folderlink");
        fs::create_symlink("b", world.source / "filelink");
        fs::create_symlink("nowhere", world.source / "dangling");
        QCOMPARE(::mkfifo((world.source / "fifo").c_str(), 0600), 0);
        using Kinds = std::vector<std::pair<std::string, EntryKind>>;
        using enum EntryKind;
        const Kinds expected = {{".hidden", File},  {"C", EntryKind::Folder},  {"a\xff\xfe", File},
                                {"b", File},        {"dangling", Special},     {"fifo", Special},
                                {"filelink", File}, {"folderlink", FolderLink}};
        std::vector<FolderEntry> entries;
        QVERIFY(!world.from->List(entries));
        Kinds found;
        for (const FolderEntry& entry : entries)
            found.emplace_back(entry.name.native(), entry.facts.kind);
        QVERIFY(found == expected);
        const FileFacts& file = entries[3].facts;
        const FileFacts& link = entries[6].facts;
        QCOMPARE(file.size, std::uint64_t{5});
        QCOMPARE(file.modified.nanoseconds, std::int64_t{1'000'000'000'123'456'789});
        QCOMPARE(file.modified.granularity, std::int64_t{1});
        QVERIFY(link.isLink && !file.isLink && link.id == file.id && link.size == file.size);
    }

    void refusesNamesThatLeadElsewhere() {
        FileWorld world;
        FileWorld::Write(world.source.parent_path() / "outside", "kept");
        FileWorld::Write(world.source / "sub/deeper/file", "");
        fs::create_symlink("sub", world.source / "link");
        const auto before = FileWorld::Tree(world.source.parent_path());
        std::error_code error;
        for (const fs::path name : {"../outside", "..", ".", "", "sub/../../outside", "sub/deeper"}) {
            QVERIFY(world.from->DeleteFile(name));
            QVERIFY(world.from->DeleteEmptyFolder(name));
            QVERIFY(!world.from->OpenChild(name, error) && error);
        }
        QVERIFY(!world.from->OpenChild("link", error) && error);
        QVERIFY(world.from->DeleteFile("sub"));
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
        // A user's own files, however much alike.
        const std::string name = MakeTemporaryName(dead);
        const std::set<std::string> others = {name + "x",           name + "~", name.substr(1),
                                              ".kalvenor-.tmp",     "a.tmp",    ".kalvenor-1-2-3-4-5.tmp",
                                              ".kalvenor-notes.tmp"};
        for (const std::string& other : others)
            FileWorld::Write(world.destination / other, "");
        std::vector<FolderEntry> entries;
        QVERIFY(!world.to->List(entries));
        QCOMPARE(entries.size(), others.size());
        world.to->RemoveLeftovers();
        std::size_t left = 0;
        for (const auto& [entry, content] : FileWorld::Tree(world.destination)) {
            const auto maker = MakerOfTemporary(entry);
            QVERIFY(others.contains(entry) || entry == folder || *maker == own || *maker == foreign);
            ++left;
        }
        QCOMPARE(left, others.size() + 3);
    }
};

QTEST_GUILESS_MAIN(TestFolder)
#include "test_folder.moc"

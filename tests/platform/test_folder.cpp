#include "FileWorld.h"
#include "TemporaryName.h"

class TestFolder final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
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

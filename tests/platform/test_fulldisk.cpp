#include "FileWorld.h"

#include <sched.h>
#include <sys/mount.h>

namespace {

std::string text(std::size_t kilobytes, char character) {
    return std::string(kilobytes * 1024, character);
}

/// A disk of one megabyte that fills up under the transfer.
struct SmallDisk : FileWorld {
    SmallDisk() {
        isMounted = ::mount("none", destination.c_str(), "tmpfs", 0, "size=1m,mode=0755") == 0;
        Reopen();
    }
    ~SmallDisk() {
        to.reset();
        ::umount2(destination.c_str(), MNT_DETACH);
    }
    bool isMounted = false;
};

} // namespace

class TestFullDisk final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase() {
        // A mount name space of our own: the small disk vanishes with this process, whatever happens to it.
        if (::unshare(CLONE_NEWNS) != 0 || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
            QSKIP("only an administrator can mount a small disk");
    }

    void goesOnBehindWhatDoesNotFit() {
        for (const bool move : {false, true}) {
            SmallDisk world;
            QVERIFY(world.isMounted);
            FileWorld::Write(world.source / "file", text(700, 'n'));
            FileWorld::Write(world.source / "small", text(10, 's'));
            FileWorld::Write(world.source / "tree/1", text(100, '1'));
            FileWorld::Write(world.source / "tree/2", text(1200, '2'));
            FileWorld::Write(world.source / "tree/sub/3", text(100, '3'));
            FileWorld::Write(world.destination / "file", text(500, 'o'));
            world.Transfer(move, {world.File("file"), world.File("small")});
            world.TransferTree(move);
            QCOMPARE(world.observer.failures.size(), std::size_t{2});
            QVERIFY(world.observer.failures["file"] == std::errc::no_space_on_device);
            QVERIFY(world.observer.failures["2"] == std::errc::no_space_on_device);
            QVERIFY(FileWorld::Tree(world.destination) == (FileWorld::Entries{{"file", text(500, 'o')},
                                                                              {"small", text(10, 's')},
                                                                              {"tree", "/"},
                                                                              {"tree/1", text(100, '1')},
                                                                              {"tree/sub", "/"},
                                                                              {"tree/sub/3", text(100, '3')}}));
            QVERIFY(FileWorld::Read(world.source / "file") == text(700, 'n'));
            QVERIFY(FileWorld::Read(world.source / "tree/2") == text(1200, '2'));
            for (const char* moved : {"small", "tree/1", "tree/sub"})
                QCOMPARE(fs::exists(world.source / moved), !move);
        }
    }

    void placesWhatIsStagedToMakeRoom() {
        SmallDisk world;
        for (const char* name : {"a", "b", "c"}) {
            FileWorld::Write(world.source / name, text(250, 'n'));
            FileWorld::Write(world.destination / name, text(250, 'o'));
        }
        world.Transfer(false, {world.File("a"), world.File("b"), world.File("c")});
        QVERIFY(world.observer.failures.empty());
        QVERIFY(FileWorld::Tree(world.destination) == FileWorld::Tree(world.source));
    }
};

QTEST_GUILESS_MAIN(TestFullDisk)
#include "test_fulldisk.moc"

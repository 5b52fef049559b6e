#include "FileWorld.h"

#include <QTest>
#include <sched.h>
#include <sys/mount.h>

namespace {

constexpr std::size_t kKilobyte = 1024;

std::string text(std::size_t kilobytes, char character) {
    return std::string(kilobytes * kKilobyte, character);
}

} // namespace

// A disk of one megabyte that fills up under the transfer.
class TestFullDisk final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void keepsTheOldFile_data();
    void keepsTheOldFile();
    void placesWhatIsStagedToMakeRoom();
    void goesOnBehindAFileThatDoesNotFit_data();
    void goesOnBehindAFileThatDoesNotFit();
    void needsNoRoomForHoles();

  private: // NOLINT(readability-redundant-access-specifiers): the slots above are private by a macro
    std::unique_ptr<FileWorld> m_world;
};

void TestFullDisk::initTestCase() {
    // A mount name space of our own: the small disk vanishes with this process, whatever happens to it.
    if (::unshare(CLONE_NEWNS) != 0 || ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        QSKIP("only an administrator can mount a small disk");
}

void TestFullDisk::init() {
    m_world = std::make_unique<FileWorld>();
    QCOMPARE(::mount("none", m_world->destination.c_str(), "tmpfs", 0, "size=1m,mode=0755"), 0);
    m_world->Reopen();
}

void TestFullDisk::cleanup() {
    const fs::path disk = m_world->destination;
    m_world->to.reset();
    ::umount2(disk.c_str(), MNT_DETACH);
    m_world.reset();
}

void TestFullDisk::keepsTheOldFile_data() {
    QTest::addColumn<bool>("move");
    QTest::newRow("copy") << false;
    QTest::newRow("move") << true;
}

void TestFullDisk::keepsTheOldFile() {
    QFETCH(bool, move);
    FileWorld::Write(m_world->source / "file", text(700, 'n'));
    FileWorld::Write(m_world->source / "small", text(10, 's'));
    FileWorld::Write(m_world->destination / "file", text(500, 'o'));
    const auto transfer = m_world->system.NewTransfer(m_world->observer);
    for (const char* name : {"file", "small"}) {
        if (move)
            transfer->Move(m_world->File(name));
        else
            transfer->Copy(m_world->File(name));
    }
    transfer->Commit();
    QCOMPARE(m_world->observer.failures.size(), std::size_t{1});
    QVERIFY(m_world->observer.failures["file"] == std::errc::no_space_on_device);
    QVERIFY(FileWorld::Tree(m_world->destination) ==
            (std::map<std::string, std::string>{{"file", text(500, 'o')}, {"small", text(10, 's')}}));
    QVERIFY(FileWorld::Read(m_world->source / "file") == text(700, 'n'));
    QCOMPARE(fs::exists(m_world->source / "small"), !move);
}

void TestFullDisk::placesWhatIsStagedToMakeRoom() {
    const auto transfer = m_world->system.NewTransfer(m_world->observer);
    for (const char* name : {"a", "b", "c"}) {
        FileWorld::Write(m_world->source / name, text(250, 'n'));
        FileWorld::Write(m_world->destination / name, text(250, 'o'));
    }
    for (const char* name : {"a", "b", "c"})
        transfer->Copy(m_world->File(name));
    transfer->Commit();
    QVERIFY(m_world->observer.failures.empty());
    QVERIFY(FileWorld::Tree(m_world->destination) == FileWorld::Tree(m_world->source));
}

void TestFullDisk::goesOnBehindAFileThatDoesNotFit_data() {
    keepsTheOldFile_data();
}

void TestFullDisk::goesOnBehindAFileThatDoesNotFit() {
    QFETCH(bool, move);
    FileWorld::Write(m_world->source / "tree/1", text(300, '1'));
    FileWorld::Write(m_world->source / "tree/2", text(1200, '2'));
    FileWorld::Write(m_world->source / "tree/sub/3", text(300, '3'));
    {
        const auto transfer = m_world->system.NewTransfer(m_world->observer);
        if (move)
            transfer->MoveTree(m_world->from, m_world->to, "tree", {});
        else
            transfer->CopyTree(m_world->from, m_world->to, "tree", {});
    }
    QCOMPARE(m_world->observer.failures.size(), std::size_t{1});
    QVERIFY(m_world->observer.failures["2"] == std::errc::no_space_on_device);
    QVERIFY(FileWorld::Tree(m_world->destination) ==
            (std::map<std::string, std::string>{
                {"tree", "/"}, {"tree/1", text(300, '1')}, {"tree/sub", "/"}, {"tree/sub/3", text(300, '3')}}));
    QVERIFY(FileWorld::Read(m_world->source / "tree/2") == text(1200, '2'));
    QCOMPARE(fs::exists(m_world->source / "tree/1"), !move);
    QCOMPARE(fs::exists(m_world->source / "tree/sub"), !move);
}

void TestFullDisk::needsNoRoomForHoles() {
    FileWorld::Write(m_world->source / "sparse", "begin");
    fs::resize_file(m_world->source / "sparse", 8'000'000);
    const auto transfer = m_world->system.NewTransfer(m_world->observer);
    transfer->Copy(m_world->File("sparse"));
    transfer->Commit();
    QVERIFY(m_world->observer.failures.empty());
    QCOMPARE(fs::file_size(m_world->destination / "sparse"), std::uintmax_t{8'000'000});
}

QTEST_GUILESS_MAIN(TestFullDisk)
#include "test_fulldisk.moc"

#include "FileWorld.h"

#include <QTest>
#include <algorithm>
#include <unistd.h>

namespace {

const std::string kOld = "the old content";
const std::string kNew = "something new";

} // namespace

class TestFileTransfer final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void copiesContentAndAttributes_data();
    void copiesContentAndAttributes();
    void oldFileStandsUntilCommit();
    void theDestructorCommits();
    void laterCopyOfTheSameNameWins();
    void meetsWhatStandsAtTheDestination_data();
    void meetsWhatStandsAtTheDestination();
    void leavesASingleFileAlone_data();
    void leavesASingleFileAlone();
    void discardsACopyOfAChangingSource_data();
    void discardsACopyOfAChangingSource();
    void refusesASourceThatIsNoLongerTheListedFile_data();
    void refusesASourceThatIsNoLongerTheListedFile();
    void readsALinkAsItsFile_data();
    void readsALinkAsItsFile();
    void keepsASourceChangedAfterItsCopy();
    void moveNeverLosesToAStagedCopy();
    void keepsHoles_data();
    void keepsHoles();
};

void TestFileTransfer::copiesContentAndAttributes_data() {
    QTest::addColumn<bool>("otherDevice");
    QTest::addColumn<bool>("move");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("mode");
    for (const bool other : {false, true}) {
        for (const bool move : {false, true}) {
            for (const int size : {0, 1, 70'000, 9'000'001}) {
                for (const int mode : {0644, 0600, 0777, 0440, 0, 06755}) {
                    QTest::addRow("%s %s %d bytes %o", other ? "other device" : "same device", move ? "move" : "copy",
                                  size, static_cast<unsigned>(mode))
                        << other << move << size << mode;
                }
            }
        }
    }
}

void TestFileTransfer::copiesContentAndAttributes() {
    QFETCH(bool, otherDevice);
    QFETCH(bool, move);
    QFETCH(int, size);
    QFETCH(int, mode);
    FileWorld world(otherDevice);
    if (otherDevice && !world.IsApart())
        QSKIP("no second device");
    if (mode == 0 && ::geteuid() != 0)
        QSKIP("only an administrator reads such a file");
    std::string text(static_cast<std::size_t>(size), ' ');
    std::generate(text.begin(), text.end(),
                  [n = 0U]() mutable { return static_cast<char>((n++ * 2654435761U) >> 24U); });
    const fs::path name = "n\xe4me with \\ and \n";
    FileWorld::Write(world.source / name, text);
    ::setxattr((world.source / name).c_str(), "user.colour", "blue", 4, 0);
    ::chmod((world.source / name).c_str(), static_cast<mode_t>(mode));
    FileWorld::SetTime(world.source / name, 1'234'567'890);
    const struct stat before = FileWorld::StatusOf(world.source / name);
    {
        const auto transfer = world.system.NewTransfer(world.observer);
        if (move)
            transfer->Move(world.File(name));
        else
            transfer->Copy(world.File(name));
        transfer->Commit();
    }
    QVERIFY(world.observer.failures.empty());
    QVERIFY(FileWorld::Tree(world.destination) == (std::map<std::string, std::string>{{name.native(), text}}));
    QCOMPARE(fs::exists(world.source / name), !move);
    const struct stat after = FileWorld::StatusOf(world.destination / name);
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
    QCOMPARE(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    std::array<char, 16> value{};
    const ssize_t length = ::getxattr((world.destination / name).c_str(), "user.colour", value.data(), value.size());
    QVERIFY((length == 4 && std::string(value.data(), 4) == "blue") || otherDevice);
}

void TestFileTransfer::oldFileStandsUntilCommit() {
    FileWorld world;
    FileWorld::Write(world.source / "file", kNew);
    FileWorld::Write(world.destination / "file", kOld);
    const std::ifstream reader(world.destination / "file"); // holds the old file through the replacement
    const ino_t old = FileWorld::StatusOf(world.destination / "file").st_ino;
    const auto transfer = world.system.NewTransfer(world.observer);
    transfer->Copy(world.File("file"));
    QCOMPARE(FileWorld::Read(world.destination / "file"), kOld);
    transfer->Commit();
    QCOMPARE(FileWorld::Read(world.destination / "file"), kNew);
    QVERIFY(FileWorld::StatusOf(world.destination / "file").st_ino != old); // replaced, not written over
    QCOMPARE(FileWorld::Tree(world.destination).size(), std::size_t{1});
}

void TestFileTransfer::theDestructorCommits() {
    FileWorld world;
    FileWorld::Write(world.source / "file", kNew);
    world.system.NewTransfer(world.observer)->Copy(world.File("file"));
    QCOMPARE(FileWorld::Read(world.destination / "file"), kNew);
}

void TestFileTransfer::laterCopyOfTheSameNameWins() {
    FileWorld world;
    const auto transfer = world.system.NewTransfer(world.observer);
    for (const char* text : {"first", "second", "third"}) {
        FileWorld::Write(world.source / "file", text);
        transfer->Copy(world.File("file"));
    }
    transfer->Commit();
    QCOMPARE(FileWorld::Read(world.destination / "file"), std::string("third"));
    QVERIFY(world.observer.failures.empty());
}

void TestFileTransfer::meetsWhatStandsAtTheDestination_data() {
    QTest::addColumn<QString>("existing");
    QTest::addColumn<bool>("otherDevice");
    QTest::addColumn<bool>("move");
    for (const char* existing : {"file", "link to file", "dangling link", "folder", "folder link", "fifo"}) {
        for (const bool other : {false, true}) {
            for (const bool move : {false, true})
                QTest::addRow("%s %s %s", existing, other ? "other device" : "same device", move ? "move" : "copy")
                    << QString::fromLatin1(existing) << other << move;
        }
    }
}

void TestFileTransfer::meetsWhatStandsAtTheDestination() {
    QFETCH(QString, existing);
    QFETCH(bool, otherDevice);
    QFETCH(bool, move);
    FileWorld world(otherDevice);
    const fs::path place = world.destination / "name";
    const fs::path aside = world.destination.parent_path() / "aside";
    FileWorld::Write(aside, kOld);
    FileWorld::Write(world.source / "name", kNew);
    if (existing == QLatin1String("file"))
        FileWorld::Write(place, kOld);
    else if (existing == QLatin1String("link to file"))
        fs::create_symlink(aside, place);
    else if (existing == QLatin1String("dangling link"))
        fs::create_symlink("nowhere", place);
    else if (existing == QLatin1String("folder"))
        fs::create_directory(place);
    else if (existing == QLatin1String("folder link"))
        fs::create_directory_symlink(world.destination.parent_path(), place);
    else
        QCOMPARE(::mkfifo(place.c_str(), 0600), 0);
    const struct stat before = FileWorld::StatusOf(place);
    const auto transfer = world.system.NewTransfer(world.observer);
    if (move)
        transfer->Move(world.File("name"));
    else
        transfer->Copy(world.File("name"));
    transfer->Commit();
    QCOMPARE(FileWorld::Read(aside), kOld); // a link is never written through
    const bool isReplaced = existing.endsWith(QLatin1String("file"));
    if (isReplaced) {
        QVERIFY(world.observer.failures.empty());
        QVERIFY(S_ISREG(FileWorld::StatusOf(place).st_mode));
        QCOMPARE(FileWorld::Read(place), kNew);
        QCOMPARE(fs::exists(world.source / "name"), !move);
    } else {
        const std::errc expected =
            existing == QLatin1String("folder") ? std::errc::is_a_directory : std::errc::file_exists;
        QVERIFY(world.observer.failures["name"] == expected);
        QCOMPARE(FileWorld::StatusOf(place).st_ino, before.st_ino);
        QCOMPARE(FileWorld::Read(world.source / "name"), kNew);
    }
    std::vector<FolderEntry> entries;
    QVERIFY(!world.to->List(entries));
    QCOMPARE(static_cast<std::ptrdiff_t>(entries.size()),
             std::distance(fs::directory_iterator(world.destination), fs::directory_iterator()));
}

void TestFileTransfer::leavesASingleFileAlone_data() {
    QTest::addColumn<bool>("symbolic");
    QTest::addColumn<bool>("move");
    QTest::newRow("hard link, copy") << false << false;
    QTest::newRow("hard link, move") << false << true;
    QTest::newRow("link, copy") << true << false;
    QTest::newRow("link, move") << true << true;
}

void TestFileTransfer::leavesASingleFileAlone() {
    QFETCH(bool, symbolic);
    QFETCH(bool, move);
    FileWorld world;
    FileWorld::Write(world.destination / "file", kOld);
    if (symbolic)
        fs::create_symlink(world.destination / "file", world.source / "file");
    else
        fs::create_hard_link(world.destination / "file", world.source / "file");
    const ino_t inode = FileWorld::StatusOf(world.destination / "file").st_ino;
    const auto transfer = world.system.NewTransfer(world.observer);
    if (move)
        transfer->Move(world.File("file"));
    else
        transfer->Copy(world.File("file"));
    TransferFile onItself = world.File("file");
    onItself.source = onItself.destination;
    if (move)
        transfer->Move(onItself);
    else
        transfer->Copy(onItself);
    transfer->Commit();
    QVERIFY(world.observer.failures.empty());
    QVERIFY(fs::exists(world.source / "file"));
    QCOMPARE(FileWorld::StatusOf(world.destination / "file").st_ino, inode);
    QCOMPARE(FileWorld::Read(world.destination / "file"), kOld);
}

void TestFileTransfer::discardsACopyOfAChangingSource_data() {
    QTest::addColumn<bool>("otherDevice");
    QTest::addColumn<QString>("change");
    for (const char* change : {"write", "append", "truncate", "replace"}) {
        QTest::addRow("%s, same device", change) << false << QString::fromLatin1(change);
        QTest::addRow("%s, other device", change) << true << QString::fromLatin1(change);
    }
}

void TestFileTransfer::discardsACopyOfAChangingSource() {
    QFETCH(bool, otherDevice);
    QFETCH(QString, change);
    FileWorld world(otherDevice);
    const fs::path file = world.source / "large";
    std::string large;
    large.resize(12'000'000, 'a');
    FileWorld::Write(file, large);
    FileWorld::Write(world.destination / "large", kOld);
    world.observer.onProgress = [&, isDone = false]() mutable {
        if (std::exchange(isDone, true))
            return;
        if (change == QLatin1String("write"))
            std::fstream(file, std::ios::in | std::ios::out).seekp(11'000'000) << "changed";
        else if (change == QLatin1String("append"))
            std::ofstream(file, std::ios::app) << "more";
        else if (change == QLatin1String("truncate"))
            fs::resize_file(file, 5'000'000);
        else
            std::ofstream(file, std::ios::trunc) << "another";
    };
    const auto transfer = world.system.NewTransfer(world.observer);
    if (otherDevice)
        transfer->Move(world.File("large"));
    else
        transfer->Copy(world.File("large"));
    transfer->Commit();
    QVERIFY(world.observer.failures["large"] == std::errc::resource_unavailable_try_again);
    QVERIFY(FileWorld::Tree(world.destination) == (std::map<std::string, std::string>{{"large", kOld}}));
    QVERIFY(fs::exists(file));
}

void TestFileTransfer::refusesASourceThatIsNoLongerTheListedFile_data() {
    QTest::addColumn<QString>("now");
    QTest::addColumn<bool>("otherDevice");
    QTest::addColumn<bool>("move");
    for (const char* now : {"gone", "fifo", "folder", "link", "touched"}) {
        for (const bool other : {false, true}) {
            for (const bool move : {false, true})
                QTest::addRow("%s %s %s", now, other ? "other device" : "same device", move ? "move" : "copy")
                    << QString::fromLatin1(now) << other << move;
        }
    }
}

void TestFileTransfer::refusesASourceThatIsNoLongerTheListedFile() {
    QFETCH(QString, now);
    QFETCH(bool, otherDevice);
    QFETCH(bool, move);
    FileWorld world(otherDevice);
    const fs::path file = world.source / "file";
    FileWorld::Write(file, kNew);
    FileWorld::Write(world.source / "other", kNew);
    const TransferFile listed = world.File("file");
    if (now == QLatin1String("touched"))
        FileWorld::SetTime(file, 5);
    else
        fs::rename(file, world.source / "aside");
    if (now == QLatin1String("fifo"))
        QCOMPARE(::mkfifo(file.c_str(), 0600), 0);
    else if (now == QLatin1String("folder"))
        fs::create_directory(file);
    else if (now == QLatin1String("link"))
        fs::create_symlink("other", file);
    const auto before = FileWorld::Tree(world.source);
    const auto transfer = world.system.NewTransfer(world.observer);
    if (move)
        transfer->Move(listed);
    else
        transfer->Copy(listed);
    transfer->Commit();
    QVERIFY(world.observer.failures["file"]);
    QVERIFY(FileWorld::Tree(world.destination).empty());
    QVERIFY(FileWorld::Tree(world.source) == before);
}

void TestFileTransfer::readsALinkAsItsFile_data() {
    QTest::addColumn<bool>("otherDevice");
    QTest::newRow("same device") << false;
    QTest::newRow("other device") << true;
}

void TestFileTransfer::readsALinkAsItsFile() {
    QFETCH(bool, otherDevice);
    FileWorld world(otherDevice);
    const fs::path target = world.source.parent_path() / "target";
    FileWorld::Write(target, kNew);
    fs::create_symlink(target, world.source / "link");
    const auto transfer = world.system.NewTransfer(world.observer);
    transfer->Move(world.File("link"));
    transfer->Commit();
    QVERIFY(world.observer.failures.empty());
    QVERIFY(S_ISREG(FileWorld::StatusOf(world.destination / "link").st_mode));
    QCOMPARE(FileWorld::Read(world.destination / "link"), kNew);
    QVERIFY(FileWorld::SameTime(world.destination / "link", target));
    QVERIFY(!fs::is_symlink(world.source / "link")); // the link has moved, the file it led to stays
    QCOMPARE(FileWorld::Read(target), kNew);
}

void TestFileTransfer::keepsASourceChangedAfterItsCopy() {
    FileWorld world(true);
    if (!world.IsApart())
        QSKIP("no second device");
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

void TestFileTransfer::moveNeverLosesToAStagedCopy() {
    FileWorld world;
    const auto transfer = world.system.NewTransfer(world.observer);
    FileWorld::Write(world.source / "file", kOld);
    transfer->Copy(world.File("file"));
    FileWorld::Write(world.source / "file", kNew);
    transfer->Move(world.File("file"));
    transfer->Commit();
    QCOMPARE(FileWorld::Read(world.destination / "file"), kNew); // the only one left
}

void TestFileTransfer::keepsHoles_data() {
    readsALinkAsItsFile_data();
}

void TestFileTransfer::keepsHoles() {
    QFETCH(bool, otherDevice);
    FileWorld world(otherDevice);
    const fs::path file = world.source / "sparse";
    FileWorld::Write(file, "begin");
    fs::resize_file(file, 50'000'000);
    std::fstream(file, std::ios::in | std::ios::out).seekp(20'000'000) << "middle";
    FileWorld::Write(world.source / "empty", "");
    fs::resize_file(world.source / "empty", 30'000'000);
    const auto transfer = world.system.NewTransfer(world.observer);
    transfer->Copy(world.File("sparse"));
    transfer->Copy(world.File("empty"));
    transfer->Commit();
    QVERIFY(world.observer.failures.empty());
    QVERIFY(FileWorld::Read(world.destination / "sparse") == FileWorld::Read(file));
    QCOMPARE(fs::file_size(world.destination / "empty"), std::uintmax_t{30'000'000});
    QVERIFY(FileWorld::StatusOf(world.destination / "sparse").st_blocks < 2'000);
    QVERIFY(FileWorld::StatusOf(world.destination / "empty").st_blocks < 100);
}

QTEST_GUILESS_MAIN(TestFileTransfer)
#include "test_filetransfer.moc"

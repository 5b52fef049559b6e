#include "FileWorld.h"
#include "TemporaryName.h"

#include <QTest>
#include <algorithm>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

class TestFolder final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void listsKindsInByteOrder();
    void seesThroughLinks();
    void tellsMissingFromUnreadable();
    void refusesWhatIsNoSubfolder_data();
    void refusesWhatIsNoSubfolder();
    void refusesNamesThatLeadElsewhere();
    void knowsItsAncestors();
    void noticesThatItWasReplaced();
    void removesLeftoversOfDeadProcessesOnly();
    void tellsTemporaryNamesFromOthers();
};

void TestFolder::listsKindsInByteOrder() {
    FileWorld world;
    FileWorld::Write(world.source / "b", "12345");
    FileWorld::Write(world.source / "a\xff\xfe", ""); // no valid text
    FileWorld::Write(world.source / ".hidden", "");
    fs::create_directory(world.source / "C");
    fs::create_symlink("C", world.source / "folderlink");
    fs::create_symlink("b", world.source / "filelink");
    fs::create_symlink("nowhere", world.source / "dangling");
    QCOMPARE(::mkfifo((world.source / "fifo").c_str(), 0600), 0);
    std::vector<FolderEntry> entries;
    QVERIFY(!world.from->List(entries));
    const std::vector<std::pair<std::string, EntryKind>> expected = {
        {".hidden", EntryKind::File},     {"C", EntryKind::Folder},
        {"a\xff\xfe", EntryKind::File},   {"b", EntryKind::File},
        {"dangling", EntryKind::Special}, {"fifo", EntryKind::Special},
        {"filelink", EntryKind::File},    {"folderlink", EntryKind::FolderLink}};
    std::vector<std::pair<std::string, EntryKind>> found;
    found.reserve(entries.size());
    for (const FolderEntry& entry : entries)
        found.emplace_back(entry.name.native(), entry.facts.kind);
    QVERIFY(found == expected);
    QCOMPARE(entries[3].facts.size, std::uint64_t{5});
    QCOMPARE(entries[3].facts.modified.nanoseconds, std::int64_t{1'000'000'000'123'456'789});
    QCOMPARE(entries[3].facts.modified.granularity, std::int64_t{1});
    fs::remove(world.source / "b");
    QVERIFY(!world.from->List(entries)); // a second listing starts afresh
    QCOMPARE(entries.size(), expected.size() - 1);
}

void TestFolder::seesThroughLinks() {
    FileWorld world;
    FileWorld::Write(world.source / "target", "abc");
    fs::create_symlink("target", world.source / "link");
    std::error_code error;
    const auto target = world.from->Stat("target", error);
    const auto link = world.from->Stat("link", error);
    QVERIFY(target && link && !error);
    QVERIFY(link->isLink && !target->isLink);
    QVERIFY(link->id == target->id);
    QCOMPARE(link->size, std::uint64_t{3});
}

void TestFolder::tellsMissingFromUnreadable() {
    FileWorld world;
    std::error_code error = std::make_error_code(std::errc::io_error);
    QVERIFY(!world.from->Stat("missing", error));
    QVERIFY(!error);
    QVERIFY(!world.system.OpenFolder(world.source / "missing", error));
    QVERIFY(error == std::errc::no_such_file_or_directory);
    QVERIFY(!world.system.OpenFolder({}, error));
    QVERIFY(error);
    if (::geteuid() != 0)
        QSKIP("needs to change the user");
    FileWorld::Write(world.source / "file", "");
    fs::permissions(world.source, fs::perms::owner_read | fs::perms::others_read);
    const pid_t child = ::fork();
    if (child == 0) { // may read the names, but nothing of the entries: that is no empty folder
        std::vector<FolderEntry> entries;
        const bool dropped = ::setuid(65534) == 0;
        ::_exit(dropped && world.from->List(entries) && entries.empty() ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    QCOMPARE(status, 0);
}

void TestFolder::refusesWhatIsNoSubfolder_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"file", "link", "missing", "..", "sub/deeper", ""})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestFolder::refusesWhatIsNoSubfolder() {
    QFETCH(QString, name);
    FileWorld world;
    FileWorld::Write(world.source / "file", "");
    fs::create_directories(world.source / "sub/deeper");
    fs::create_symlink("sub", world.source / "link");
    std::error_code error;
    QVERIFY(!world.from->OpenChild(name.toStdString(), error));
    QVERIFY(error);
    if (name == QLatin1String("link"))
        QVERIFY(error == std::errc::not_a_directory);
    const auto child = world.from->OpenChild("sub", error);
    QVERIFY(child && !error);
    QVERIFY(child->Path() == world.source / "sub");
}

void TestFolder::refusesNamesThatLeadElsewhere() {
    FileWorld world;
    FileWorld::Write(world.source.parent_path() / "outside", "kept");
    fs::create_directory(world.source / "sub");
    for (const fs::path name : {"../outside", "..", ".", "", "sub/../../outside"}) {
        QVERIFY(world.from->DeleteFile(name));
        QVERIFY(world.from->DeleteEmptyFolder(name));
    }
    QVERIFY(world.from->DeleteFile("sub"));
    QVERIFY(fs::exists(world.source.parent_path() / "outside") && fs::exists(world.source / "sub"));
    FileWorld::Write(world.source / "sub/file", "");
    QVERIFY(world.from->DeleteEmptyFolder("sub") == std::errc::directory_not_empty);
}

void TestFolder::knowsItsAncestors() {
    FileWorld world;
    const std::vector<FileId> ids = world.from->Ancestors();
    std::error_code error;
    QVERIFY(ids.size() >= 3);
    QVERIFY(ids.front() == world.from->Id());
    QVERIFY(ids[1] == world.system.OpenFolder(world.source.parent_path(), error)->Id());
    QVERIFY(ids.back() == world.system.OpenFolder("/", error)->Id());
    QCOMPARE(std::count(ids.begin(), ids.end(), ids.back()), 1);
}

void TestFolder::noticesThatItWasReplaced() {
    FileWorld world;
    QVERIFY(world.from->StillThere());
    fs::rename(world.source, world.source.parent_path() / "away");
    QVERIFY(!world.from->StillThere());
    fs::create_directory(world.source);
    QVERIFY(!world.from->StillThere());
}

void TestFolder::removesLeftoversOfDeadProcessesOnly() {
    FileWorld world;
    const ProcessMark own = ProcessMark::OfThisProcess();
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    ProcessMark dead = own;
    dead.process = child;
    ProcessMark reused = own;
    ++reused.startTicks;
    ProcessMark rebooted = own;
    ++rebooted.boot;
    ProcessMark foreign = dead;
    ++foreign.machine;
    for (const ProcessMark& mark : {own, dead, reused, rebooted, foreign})
        FileWorld::Write(world.destination / MakeTemporaryName(mark), "half", 1);
    const fs::path folder = world.destination / MakeTemporaryName(dead);
    fs::create_directory(folder);
    const fs::path alike = world.destination / (MakeTemporaryName(dead) + "x");
    FileWorld::Write(alike, "");
    std::vector<FolderEntry> entries;
    QVERIFY(!world.to->List(entries));
    QCOMPARE(entries.size(), std::size_t{1}); // the one that only looks alike
    world.to->RemoveLeftovers();
    int left = 0;
    for (const auto& entry : fs::directory_iterator(world.destination)) {
        const auto maker = MakerOfTemporary(entry.path().filename().native());
        QVERIFY(entry.path() == alike || entry.path() == folder || *maker == own || *maker == foreign);
        ++left;
    }
    QCOMPARE(left, 4);
}

void TestFolder::tellsTemporaryNamesFromOthers() {
    const ProcessMark own = ProcessMark::OfThisProcess();
    const std::string name = MakeTemporaryName(own);
    QVERIFY(MakerOfTemporary(name) == own);
    QVERIFY(name != MakeTemporaryName(own));
    for (const std::string_view other :
         {".kalvenor-.tmp", ".kalvenor-1-2-3-4-5.tmp", ".kalvenor-notes.tmp", "a.tmp", ""})
        QVERIFY(!MakerOfTemporary(other));
    QVERIFY(!MakerOfTemporary(name.substr(1)));
    QVERIFY(!MakerOfTemporary(name + "~"));
}

QTEST_GUILESS_MAIN(TestFolder)
#include "test_folder.moc"

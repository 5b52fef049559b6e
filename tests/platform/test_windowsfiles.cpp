// What Windows refuses: files that are open elsewhere or read-only, names that it would bend. And the program's own
// files there.
#include "FileWorld.h"
#include "Handle.h"
#include "OwnFiles.h"
#include "Table.h"
#include "WindowsName.h"
#include "WindowsServices.h"
#include "modNativePath.h"
#include "modRegularFile.h"

#include <optional>

namespace {

WinHandle open(const fs::path& file, DWORD access, DWORD share) {
    return WinHandle(CreateFileW(file.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

} // namespace

class TestWindowsFiles final : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void keepsBothFilesWhereOneIsHeld_data() {
        FileWorld::AddWays(
            {"destination open", "destination shared", "destination read-only", "source open", "source written"});
    }
    void keepsBothFilesWhereOneIsHeld() {
        QFETCH(FileWorld::Way, way);
        constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        FileWorld world(way.otherDevice);
        FileWorld::Write(world.source / "file", "new");
        FileWorld::Write(world.destination / "file", "old");
        const bool isReadOnly = way.kind.endsWith("read-only");
        const fs::path held = (way.kind.startsWith("source") ? world.source : world.destination) / "file";
        const bool isAlone = way.kind.endsWith(" open"); // no program has to share it
        if (isReadOnly)
            SetFileAttributesW(held.c_str(), FILE_ATTRIBUTE_READONLY);
        {
            const WinHandle handle =
                isReadOnly
                    ? WinHandle()
                    : open(held, way.kind.endsWith("written") ? GENERIC_WRITE : GENERIC_READ, isAlone ? 0 : shareAll);
            QVERIFY(isReadOnly || handle.IsOpen());
            if (way.kind == "source written" && way.IsOneRename())
                return; // it is shared for that, and nothing is copied
            TransferFile file = world.File("file");
            world.Transfer(way.move, {file});
        }
        const std::error_code error = world.observer.failures["file"];
        QVERIFY2(error == (isReadOnly ? std::errc::permission_denied : std::errc::device_or_resource_busy),
                 error.message().c_str());
        QVERIFY(FileWorld::Tree(world.source) == (FileWorld::Entries{{"file", "new"}}));
        QVERIFY(FileWorld::Tree(world.destination) == (FileWorld::Entries{{"file", "old"}}));
        SetFileAttributesW(held.c_str(), FILE_ATTRIBUTE_NORMAL);
    }

    void keepsTimesAndAttributes_data() { FileWorld::AddWays(); }
    void keepsTimesAndAttributes() {
        QFETCH(FileWorld::Way, way);
        constexpr DWORD given = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
        FileWorld world(way.otherDevice);
        const fs::path name = L"\u00e4\u0416 \u65e5";
        FileWorld::Write(world.source / name, std::string(3'000'001, 'x'));
        SetFileAttributesW((world.source / name).c_str(), given);
        const FileFacts before = world.File(name).facts;
        QCOMPARE(before.modified.nanoseconds, std::int64_t{1'000'000'000'123'456'700});
        world.Transfer(way.move, name);
        QVERIFY(world.observer.failures.empty());
        std::error_code error;
        const FileFacts after = world.to->Stat(name, error).value_or(FileFacts{});
        QVERIFY(after.size == before.size && after.modified.nanoseconds == before.modified.nanoseconds);
        QCOMPARE(GetFileAttributesW((world.destination / name).c_str()) & given, given);
        QCOMPARE(fs::exists(world.source / name), !way.move);
        for (const fs::path& path : {world.source / name, world.destination / name})
            SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    }

    void refusesNamesThatWouldBeBent() {
        FileWorld world;
        FileWorld::Write(world.source / "file", "kept");
        std::error_code error;
        for (const char* name : {"NUL", "con", "com1.txt", "LPT9", "file.", "file ", "file:stream", "a/b", "x?"}) {
            TransferFile file = world.File("file");
            file.name = name;
            world.observer.failures.clear();
            world.Transfer(false, {file});
            QVERIFY(world.observer.failures.begin()->second == std::errc::invalid_argument);
            QVERIFY(world.to->DeleteFile({name, file.facts}) == std::errc::invalid_argument);
            QVERIFY(!world.to->Stat(name, error) && error == std::errc::invalid_argument);
        }
        for (const char* name : {"source.", "source ", "NUL", "source:x"})
            QVERIFY(!world.system.OpenFolder(world.source.parent_path() / name, error) &&
                    error == std::errc::invalid_argument);
        for (const char* name : {"console", "com", "COM10", ".nul", "a.b c"})
            QVERIFY(WindowsName::IsPlain(name));
    }

    void reachesWhatLiesDeep() {
        FileWorld world(!FileWorld::OtherDevice().empty());
        std::error_code error;
        std::shared_ptr<Folder> folder = world.from;
        const std::wstring name(100, L'd');
        fs::path deep = world.source;
        for (int level = 0; level < 6; ++level) {
            deep /= name;
            QVERIFY(CreateDirectoryW((L"\\\\?\\" + deep.native()).c_str(), nullptr) != 0);
        }
        const std::unique_ptr<OwnFiles> own = MakeOwnFiles();
        QVERIFY(!own->CreateNew(deep / "file", "deep"));
        const auto transfer = world.system.NewTransfer(world.observer, nullptr);
        transfer->MoveTree(world.from, world.to, {name, world.File(name).facts}, {});
        transfer->Commit();
        QVERIFY(world.observer.failures.empty());
        QByteArray bytes;
        QVERIFY(!own->ReadAll(world.destination / deep.lexically_relative(world.source) / "file", 9, bytes));
        QCOMPARE(bytes, QByteArray("deep"));
        QVERIFY(!fs::exists(world.source / name));
    }

    void ownFilesAreWholeOrUntouched() {
        FileWorld world;
        const std::unique_ptr<OwnFiles> own = MakeOwnFiles();
        const fs::path file = world.source / L"new \u00e4/own";
        QByteArray bytes;
        QVERIFY(!own->CreateNew(file, "old") && own->CreateNew(file, "other") == std::errc::file_exists);
        const std::optional<FileStamp> stamp = own->Stamp(file);
        QVERIFY(!own->Append(file, "+", false) && stamp != own->Stamp(file) && own->Stamp(file));
        for (const bool isReadOnly : {true, false}) {
            std::optional<WinHandle> handle;
            if (isReadOnly)
                SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
            else
                handle.emplace(open(file, GENERIC_READ, FILE_SHARE_READ));
            const auto expected = isReadOnly ? std::errc::permission_denied : std::errc::device_or_resource_busy;
            QVERIFY(own->ReplaceAll(file, "new") == expected && own->Delete(file));
            SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
        }
        QVERIFY(!own->ReadAll(file, 4, bytes) && bytes == "old+");
        QVERIFY(own->ReadAll(file, 3, bytes) == std::errc::file_too_large);
        QVERIFY(!own->ReplaceAll(file, "new") && !own->ReadAll(file, 3, bytes) && bytes == "new");
        const fs::path other = FileWorld::OtherDevice().empty() ? world.destination : world.OtherDevice();
        const fs::path target = other / world.source.parent_path().filename();
        {
            const WinHandle writer = open(file, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
            QVERIFY(own->MoveAway(file, target) == std::errc::device_or_resource_busy);
        }
        QVERIFY(!own->MoveAway(file, target) && !own->Stamp(file) && !own->ReadAll(target, 3, bytes));
        QVERIFY(bytes == "new" && !own->Delete(target) && own->Delete(target) && own->Delete(world.source));
        QVERIFY(own->ReadAll(world.source, 9, bytes) == std::errc::is_a_directory);
        QVERIFY(own->FindIgnoringCase(world.source, L"NEW \u00c4") == fs::path(L"new \u00e4"));
        QVERIFY(own->IsWritableFolder(world.source) && !own->IsWritableFolder(world.source / "none"));
        QFile opened;
        QVERIFY(modRegularFile::Open(world.source, opened) == std::errc::is_a_directory);
        QVERIFY(modRegularFile::Open("NUL", opened) == std::errc::invalid_argument);
    }

    void pathsAndTheirTexts() {
        QCOMPARE(modNativePath::ToText(L"C:\\\u00e4\xd800z\xdc00"), QStringLiteral("C:\\\u00e4\\ud800z\\udc00"));
        QCOMPARE(modNativePath::FromText(QStringLiteral("C:\\\u0416")), fs::path(L"C:\\\u0416"));
        QVERIFY(modNativePath::Absolute(QStringLiteral(" \t")).empty());
        QCOMPARE(modNativePath::Absolute(QStringLiteral("C:/a/b./")), fs::path(L"C:\\a\\b."));
        QCOMPARE(modNativePath::Absolute(QStringLiteral("C:\\")), fs::path(L"C:\\"));
    }
};

QTEST_GUILESS_MAIN(TestWindowsFiles)
#include "test_windowsfiles.moc"

// What tests ask of Windows.
#pragma once

#include "FileSystem.h"
#include "PlatformServices.h"

#include <QTest>
#include <filesystem>
#include <malloc.h>
#include <set>
#include <windows.h>

#undef DeleteFile // that of Folder is meant

namespace fs = std::filesystem;

class SystemWorld {
  public:
    [[nodiscard]] static std::unique_ptr<FileSystem> MakeSystem() { return MakePlatformServices().fileSystem; }

    /// A folder on another disk than the temporary files; empty where there is none. Wine shows the host's.
    [[nodiscard]] static fs::path OtherDevice() {
        std::error_code error;
        const fs::path memory = "Z:\\dev\\shm";
        return fs::is_directory(memory, error) ? memory : fs::path();
    }

    /// False for what only other systems have. Links need a privilege here, nobody can write to a file that is being
    /// copied, names lack more letters than the slash and may not differ in their letter case alone. Wine tells of no
    /// changes below a watched folder, nor of its end, and trusts no issuer but the system's.
    [[nodiscard]] static bool CanMake(const QByteArray& kind) {
        const std::set<QByteArray> none{
            "link",         "dangling link",   "folder link",     "fifo",       "write",
            "append",       "rewrite",         "truncate",        "replace",    "case twins",
            "hostile name", "news from below", "time zone rules", "own issuers"};
        return !none.contains(kind);
    }

    [[nodiscard]] static bool IsAdministrator() { return false; }
    [[nodiscard]] static fs::path OddName() { return L"\u00e4 name"; }
    /// The number of a process that has ended.
    [[nodiscard]] static std::int32_t DeadProcess() {
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        wchar_t command[] = L"cmd /c exit";
        if (!CreateProcessW(nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
            return 0;
        WaitForSingleObject(process.hProcess, INFINITE);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return static_cast<std::int32_t>(process.dwProcessId);
    }

    /// By Wine, which differs from Windows here and there.
    [[nodiscard]] static bool IsEmulated() { return nameOfWine() != nullptr; }

    /// The path as programs of the host know it; host.py starts them.
    [[nodiscard]] static QString HostPath(const fs::path& path) {
        return IsEmulated() ? QString::fromUtf8(nameOfWine()(path.c_str())) : QString::fromStdWString(path.wstring());
    }

    /// What this process holds.
    struct Holdings {
        Holdings() {
            for (_HEAPINFO entry{}; _heapwalk(&entry) == _HEAPOK;)
                bytes += entry._useflag == _USEDENTRY ? entry._size : 0;
            DWORD count = 0;
            GetProcessHandleCount(GetCurrentProcess(), &count); // Wine does not count
            handles = count;
        }
        std::size_t bytes = 0;
        qsizetype handles = 0;
    };

    /// A symbolic link, which needs a privilege. False without it; Wine makes none and says it had.
    [[nodiscard]] static bool Link(const fs::path& target, const fs::path& link) {
        return CreateSymbolicLinkW(link.c_str(), target.c_str(), SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE) &&
               GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES;
    }

    /// However deep it is.
    static void RemoveTree(const fs::path& folder) {
        const std::wstring command = L"rd /s /q \"\\\\?\\" + folder.wstring() + L'"';
        QCOMPARE(_wsystem(command.c_str()), 0);
    }

    /// Nothing can be moved from this file to the current folder while the result lives: another program reads it.
    [[nodiscard]] static std::shared_ptr<void> PreventMove(const fs::path& file) {
        return {CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr),
                &CloseHandle};
    }

    static void MakeFifo(const fs::path& /*path*/) {}

    static void SetTime(const fs::path& path, std::int64_t seconds) {
        SetNanoseconds(path, seconds * 1'000'000'000 + 123'456'700);
    }
    static void SetNanoseconds(const fs::path& path, std::int64_t nanoseconds) {
        const std::int64_t time = nanoseconds / 100 + from1601To1970;
        const FILETIME both{static_cast<DWORD>(time & 0xffffffff), static_cast<DWORD>(time >> 32)};
        const HANDLE file = CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        QVERIFY(SetFileTime(file, nullptr, nullptr, &both));
        CloseHandle(file);
    }
    [[nodiscard]] static std::int64_t Nanoseconds(const fs::path& path) {
        WIN32_FILE_ATTRIBUTE_DATA facts{};
        GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &facts);
        const FILETIME& time = facts.ftLastWriteTime;
        return ((std::int64_t{time.dwHighDateTime} << 32) + time.dwLowDateTime - from1601To1970) * 100;
    }

  private:
    using NameOfWine = char*(CDECL*)(const wchar_t*);
    [[nodiscard]] static NameOfWine nameOfWine() {
        const FARPROC proc = GetProcAddress(GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name");
        return reinterpret_cast<NameOfWine>(reinterpret_cast<void*>(proc));
    }

    static constexpr std::int64_t from1601To1970 = 116'444'736'000'000'000;
};

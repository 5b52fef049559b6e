// What the tests of files ask of Windows.
#pragma once

#include "Handle.h"
#include "WindowsServices.h"

#include <QTest>
#include <filesystem>
#include <set>

namespace fs = std::filesystem;

class SystemWorld {
  public:
    [[nodiscard]] static std::unique_ptr<FileSystem> MakeSystem() { return MakeFileSystem(); }

    /// A folder on another disk than the temporary files; empty where there is none. Wine shows the host's.
    [[nodiscard]] static fs::path OtherDevice() {
        std::error_code error;
        const fs::path memory = "Z:\\dev\\shm";
        return fs::is_directory(memory, error) ? memory : fs::path();
    }

    /// False for what only other systems have. Links need a privilege here, and nobody can write to a file that is
    /// being copied.
    [[nodiscard]] static bool CanMake(const QByteArray& kind) {
        const std::set<QByteArray> none{"link",   "dangling link", "folder link", "fifo",   "write",
                                        "append", "rewrite",       "truncate",    "replace"};
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
    static void MakeFifo(const fs::path& /*path*/) {}

    static void SetTime(const fs::path& path, std::int64_t seconds) {
        constexpr std::int64_t from1601To1970 = 11'644'473'600;
        const std::int64_t time = (seconds + from1601To1970) * 10'000'000 + 1'234'567;
        const FILETIME both{static_cast<DWORD>(time & 0xffffffff), static_cast<DWORD>(time >> 32)};
        const HANDLE file = CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        QVERIFY(SetFileTime(file, nullptr, nullptr, &both));
        CloseHandle(file);
    }
};

// Errors of the Windows file system as values: the number is the system's, the message Unicode text, and the comparison
// with std::errc says what the engine asks for (a sharing violation is std::errc::device_or_resource_busy).
#pragma once

#include "FileFacts.h"
#include "Handle.h"

#include <cerrno>
#include <system_error>

[[nodiscard]] inline std::error_code ErrorOf(int number) {
    return {number, std::generic_category()};
}

[[nodiscard]] std::error_code FileError(DWORD number);

/// GetLastError of the file system call just made.
[[nodiscard]] inline std::error_code LastFileError() {
    return FileError(GetLastError());
}

/// Not in all versions of the headers: a folder where a file was wanted.
constexpr DWORD DirectoryNotSupported = 336;

/// What the system says of one entry. Times are in 100 ns since 1601.
struct EntryStatus {
    FileId id{};
    std::uint64_t size = 0;
    std::int64_t modified = 0;
    std::int64_t changed = 0; ///< also by a program that puts the modification time back; 0 on FAT
    DWORD attributes = 0;
    DWORD reparseTag = 0; ///< 0 for an entry without one
};

/// Signals belong to the main thread on other systems; here are none.
class BlockedSignals final {
  public:
    BlockedSignals() {}
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;
    ~BlockedSignals() {}
};

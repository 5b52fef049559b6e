// One entry of an open folder, opened relative to its handle: no path that changes can lead the work elsewhere, and
// none is too long. Names are taken as they are, so callers check them first. Failures are error codes.
#pragma once

#include "SystemCall.h"

#include <filesystem>

namespace NtFile {

/// What may be done with the entry by others while it is open.
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

enum class Links { Follow, OpenItself };
enum class Kind { Any, File, Folder };

struct Order {
    ACCESS_MASK access = FILE_READ_ATTRIBUTES;
    DWORD share = shareAll;
    Links links = Links::OpenItself;
    Kind kind = Kind::Any;
    bool isNew = false; ///< makes it; std::errc::file_exists when the name is taken
    DWORD attributes = FILE_ATTRIBUTE_NORMAL;
};

/// An empty name opens the folder itself once more. Does not wait for locks or offline storage.
[[nodiscard]] WinHandle Open(HANDLE folder, const std::filesystem::path& name, const Order& order,
                             std::error_code& error);

[[nodiscard]] std::error_code ReadStatus(HANDLE entry, EntryStatus& status);

/// `entry` was opened with DELETE. Over a file that is open elsewhere or read-only it fails.
[[nodiscard]] std::error_code Rename(HANDLE entry, HANDLE folder, const std::filesystem::path& name, bool replaces);

/// Deletes the entry itself, opened with DELETE. A read-only one stays unless `evenReadOnly` (then it has to be opened
/// with FILE_WRITE_ATTRIBUTES too).
[[nodiscard]] std::error_code Delete(HANDLE entry, bool evenReadOnly = false);

/// Opened with the right to write. Its bytes and its own facts are on disk then, its name too if the disk has a
/// journal.
[[nodiscard]] std::error_code Flush(HANDLE file);

} // namespace NtFile

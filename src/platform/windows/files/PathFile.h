// A file of any length of path, opened by its path. Never waits for a device. Failures are error codes.
#pragma once

#include "SystemCall.h"

#include <filesystem>

namespace PathFile {

struct Order {
    DWORD access = FILE_READ_ATTRIBUTES;
    DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    DWORD disposition = OPEN_EXISTING;
    DWORD flags = 0; ///< FILE_FLAG_OPEN_REPARSE_POINT: the link itself
};

/// Only a regular file: a folder is std::errc::is_a_directory, anything else std::errc::invalid_argument.
[[nodiscard]] WinHandle Open(const std::filesystem::path& path, const Order& order, std::error_code& error);

[[nodiscard]] std::error_code Write(HANDLE file, const char* bytes, std::size_t count);

/// Where an open entry is, behind all links.
[[nodiscard]] std::filesystem::path FinalPath(HANDLE entry);

} // namespace PathFile

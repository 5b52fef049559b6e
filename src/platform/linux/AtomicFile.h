// Writing a file whole or not at all: a temporary beside it, synced, then put in its place in one step. Free functions
// over the file system; a failure leaves the old file as it was and no temporary behind.
#pragma once

#include <QByteArray>
#include <filesystem>
#include <sys/types.h>
#include <system_error>

namespace AtomicFile {

/// Replaces the file (through symbolic links to their target) or creates it with `newMode` less the umask. An old file
/// keeps its permission bits; one that is write-protected, or no regular file, is refused.
[[nodiscard]] std::error_code Replace(const std::filesystem::path& file, const QByteArray& bytes, mode_t newMode);

/// Creates the file; std::errc::file_exists when the name is taken, even by a dangling link.
[[nodiscard]] std::error_code Create(const std::filesystem::path& file, const QByteArray& bytes, mode_t newMode);

/// Gives a file another name on the same device, never over an existing one. std::errc::cross_device_link elsewhere.
[[nodiscard]] std::error_code RenameToFreeName(const std::filesystem::path& from, const std::filesystem::path& to);

/// Brings a folder's entries to disk; file systems that cannot sync a folder count as done.
[[nodiscard]] std::error_code SyncFolder(const std::filesystem::path& folder);

/// The folder a file lies in; "." for a bare name.
[[nodiscard]] std::filesystem::path FolderOf(const std::filesystem::path& file);

} // namespace AtomicFile

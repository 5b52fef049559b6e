// Writes a file whole or not at all: a temporary beside it, fsync, then one rename. A failure leaves the old file as it
// was and no temporary behind.
#pragma once

#include "Folder.h"

#include <QByteArray>
#include <sys/types.h>

namespace AtomicFile {

/// Replaces the file (through symbolic links to their target) or creates it with `newMode` less the umask. Owner and
/// permission bits, access list and extended attributes of an old file are kept. Fails for a write-protected file and
/// for anything but a regular one.
[[nodiscard]] std::error_code Replace(const std::filesystem::path& file, const QByteArray& bytes, mode_t newMode);

/// Replace, after creating the missing folders above the file.
[[nodiscard]] std::error_code Put(const std::filesystem::path& file, const QByteArray& bytes, mode_t newMode);

/// Creates the file; std::errc::file_exists when the name is taken, even by a dangling link.
[[nodiscard]] std::error_code Create(const std::filesystem::path& file, const QByteArray& bytes, mode_t newMode);

/// The folder a file lies in; "." for a bare name.
[[nodiscard]] std::filesystem::path FolderOf(const std::filesystem::path& file);
[[nodiscard]] std::shared_ptr<Folder> OpenFolderOf(const std::filesystem::path& file, std::error_code& error);

} // namespace AtomicFile

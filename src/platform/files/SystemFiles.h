// What a batched transfer asks of the system. Each system implements these functions, and brings the headers that the
// transfer includes by the same names: SystemCall.h (EntryStatus, ErrorOf), TemporaryFile.h, TemporaryFiles.h,
// FileStager.h, Attributes.h and DiskSync.h. Failures are error codes and change nothing.
#pragma once

#include "Folder.h"
#include "SystemCall.h"

namespace SystemFiles {

/// True for a folder of this system's own file system, which transfers can work on.
[[nodiscard]] bool IsUsable(const std::shared_ptr<Folder>& folder);

/// True for one component that leads to an entry of the folder.
[[nodiscard]] bool IsPlainName(const std::filesystem::path& name);

[[nodiscard]] std::error_code ReadStatus(const Folder& folder, EntryStatus& status);

/// Of the entry itself, also of a link.
[[nodiscard]] std::error_code ReadStatus(const Folder& folder, const std::filesystem::path& name, EntryStatus& status);

/// True when `status` is a regular file with the identity, size and modification time of `facts`.
[[nodiscard]] bool IsUnchanged(const FileFacts& facts, const EntryStatus& status);

/// Makes a folder that will be a copy of the one with this status; std::errc::file_exists when the name is taken.
[[nodiscard]] std::error_code MakeFolder(const Folder& parent, const std::filesystem::path& name,
                                         const EntryStatus& copied);

/// Lets the owner change what is in the folder.
void MakeWritable(const Folder& folder);

/// Hides the folder where its name alone does not.
void Hide(const Folder& folder);

/// A rename that replaces nothing (std::errc::file_exists).
[[nodiscard]] std::error_code RenameToFreeName(const Folder& from, const std::filesystem::path& oldName,
                                               const Folder& to, const std::filesystem::path& newName);

/// Gives the file or link itself a second name (std::errc::file_exists when that is taken). Fails where there are no
/// hard links.
[[nodiscard]] std::error_code LinkToFreeName(const Folder& from, const std::filesystem::path& oldName, const Folder& to,
                                             const std::filesystem::path& newName);

/// Brings the file to disk and renames it, over any file of this name.
[[nodiscard]] std::error_code RenameOver(const Folder& from, const std::filesystem::path& name, const Folder& to);

/// True when a rename failed only because the entry has to be moved piece by piece.
[[nodiscard]] bool NeedsCopy(const std::error_code& error, EntryKind kind);

/// True when placing the staged files may free what was missing: handles, or the space of replaced files.
[[nodiscard]] bool MayPassAfterCommit(const std::error_code& error);

/// How many open files a batch may hold.
[[nodiscard]] std::size_t HandlesOfABatch();

/// Makes an empty file of a new name, which nobody else may read.
[[nodiscard]] std::error_code MakeMark(const Folder& folder, const std::string& name);
/// Succeeds too when there is none.
[[nodiscard]] std::error_code RemoveMark(const Folder& folder, const std::filesystem::path& name);
void RenameMark(const Folder& folder, const std::string& oldName, const std::string& newName);

} // namespace SystemFiles

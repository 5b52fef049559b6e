// The folders of a trash and of what comes back from it: opened by name where they are, made where they are missing.
// Failures are error codes.
#pragma once

#include "Folder.h"
#include "SystemCall.h"

namespace TrashFolders {

/// Null with std::errc::no_such_file_or_directory or not_a_directory where there is no such folder.
[[nodiscard]] std::shared_ptr<Folder> Open(const Folder& parent, const std::filesystem::path& name,
                                           std::error_code& error);

/// The same; makes the folder as one that will be a copy of that with this `status`.
[[nodiscard]] std::shared_ptr<Folder> OpenOrMake(const Folder& parent, const std::filesystem::path& name,
                                                 const EntryStatus& status, bool& isNew, std::error_code& error);

/// Removes the folder of a run that keeps nothing more; one that is not empty stays.
void RemoveRun(Folder& trash, std::shared_ptr<Folder> run, const std::filesystem::path& name);

} // namespace TrashFolders

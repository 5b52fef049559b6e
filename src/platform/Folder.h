// An open folder of the file system: a directory descriptor, so that work inside it cannot be led astray by a path that
// changes. Shared by the walk and the transfers staged in it; closed with its last holder. Every operation says how it
// failed and leaves the disk as it was then, except DeleteTree, which stops where it failed.
#pragma once

#include "FileFacts.h"
#include <functional>
#include <memory>
#include <optional>
#include <system_error>
#include <vector>

class Folder {
  public:
    virtual ~Folder() = default;

    /// The path it was opened by: absolute, for log lines.
    [[nodiscard]] virtual const std::filesystem::path& Path() const = 0;
    [[nodiscard]] virtual FileId Id() const = 0;

    /// Every entry except "." and ".." and the program's own temporary files, sorted by name (bytes). On an error the
    /// list is empty: a folder counts as empty only when it was read to its end. An entry that could not be looked at
    /// is Unknown.
    [[nodiscard]] virtual std::error_code List(std::vector<FolderEntry>& entries) const = 0;

    /// The entry of this name, links followed. nullopt with a clear error when there is none; nullopt with an error
    /// when it could not be looked at. A dangling link is Special. On a disk that folds letter case every spelling of a
    /// name leads to the same entry.
    [[nodiscard]] virtual std::optional<FileFacts> Stat(const std::filesystem::path& name,
                                                        std::error_code& error) const = 0;

    /// Opens the sub-folder that was listed; std::errc::not_a_directory for a link to a folder,
    /// std::errc::resource_unavailable_try_again when the name leads to another folder by now (a file system was
    /// mounted or unmounted there, say).
    [[nodiscard]] virtual std::shared_ptr<Folder> OpenChild(const FolderEntry& entry, std::error_code& error) const = 0;

    /// The mount it lies on; the device where the system does not tell mounts apart. A bind mount differs from the
    /// folder above it by nothing else.
    [[nodiscard]] virtual std::uint64_t Mount() const = 0;

    /// Unlinks the file or link that was listed; std::errc::resource_unavailable_try_again when it is not the same any
    /// more.
    [[nodiscard]] virtual std::error_code DeleteFile(const FolderEntry& entry) = 0;

    /// Removes an empty folder.
    [[nodiscard]] virtual std::error_code DeleteEmptyFolder(const std::filesystem::path& name) = 0;

    /// The folders from this one up to the root of the file system, itself included.
    [[nodiscard]] virtual std::vector<FileId> Ancestors() const = 0;

    /// True while the path still leads to this folder (false when it was replaced or its mount has gone).
    [[nodiscard]] virtual bool StillThere() const = 0;

    /// Removes temporary files that a killed process left behind in this folder; those of a living one stay.
    virtual void RemoveLeftovers() = 0;
};

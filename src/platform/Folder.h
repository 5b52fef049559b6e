// An open folder, held by its descriptor so that a path that changes cannot lead the work elsewhere. The walk and the
// transfers staged in it share it; the last owner closes it. Operations fail with an error code and leave the disk as
// it was.
#pragma once

#include "FileFacts.h"
#include <functional>
#include <memory>
#include <optional>
#include <system_error>
#include <vector>

/// The file system that holds a folder, as it is known again after a restart. What the system does not tell is empty.
struct DriveFacts {
    std::string identity;             ///< made from its UUID where it has one, else its kind and source
    std::filesystem::path mountPoint; ///< absolute
    bool isNetwork = false;
};

/// What a run that was killed or stopped has left to do in a folder.
struct UnfinishedWork {
    bool isNewFolder = false; ///< the folder was new and has not been filled completely
    bool hasMoves = false;    ///< files that were moved into it may still have their sources
};

class Folder {
  public:
    /// The most levels below a root that a walk enters: every level holds a folder open on both sides.
    static constexpr int MostLevels = 1000;

    virtual ~Folder() = default;

    /// The absolute path it was opened by, for log lines.
    [[nodiscard]] virtual std::filesystem::path Path() const = 0;
    [[nodiscard]] virtual FileId Id() const = 0;

    /// Every entry except "." and ".." and the program's own temporary files, sorted by name (bytes). On an error the
    /// list is empty: a folder counts as empty only when it was read to its end. An entry that stat() fails on is
    /// Unknown.
    [[nodiscard]] virtual std::error_code List(std::vector<FolderEntry>& entries) const = 0;

    /// The entry of this name, links followed. nullopt without an error when there is none, with an error when stat()
    /// failed. A dangling link is Special. On a disk that folds letter case every spelling of a name leads to the same
    /// entry.
    [[nodiscard]] virtual std::optional<FileFacts> Stat(const std::filesystem::path& name,
                                                        std::error_code& error) const = 0;

    /// Opens the sub-folder that was listed; std::errc::not_a_directory for a link to a folder,
    /// std::errc::resource_unavailable_try_again when the name leads to another folder now (a file system was mounted
    /// or unmounted there, say).
    [[nodiscard]] virtual std::shared_ptr<Folder> OpenChild(const FolderEntry& entry, std::error_code& error) const = 0;

    /// The id of its mount, or of its device where the system has no such id; nullopt when it does not answer. A bind
    /// mount differs from its parent folder by nothing else.
    [[nodiscard]] virtual std::optional<std::uint64_t> Mount() const = 0;

    [[nodiscard]] virtual DriveFacts Drive() const = 0;

    /// Unlinks the file or link that was listed; std::errc::resource_unavailable_try_again when it has changed since.
    [[nodiscard]] virtual std::error_code DeleteFile(const FolderEntry& entry) = 0;

    /// Removes an empty folder.
    [[nodiscard]] virtual std::error_code DeleteEmptyFolder(const std::filesystem::path& name) = 0;

    /// The folders from this one up to the root of the file system, itself included.
    [[nodiscard]] virtual std::vector<FileId> Ancestors() const = 0;

    /// True while the path leads to this folder: it has not been replaced, its mount has not gone.
    [[nodiscard]] virtual bool StillThere() const = 0;

    /// Removes the temporary files of killed processes from this folder; those of a living process stay. Says what work
    /// such a process has left, until ForgetUnfinished is called.
    virtual UnfinishedWork RemoveLeftovers() = 0;

    /// Reads the names that RemoveLeftovers has to look at, so that it need not.
    virtual void FindLeftovers() = 0;

    /// The work that RemoveLeftovers told of is finished.
    virtual void ForgetUnfinished() = 0;

    /// What the system knows the open folder by, a descriptor or a HANDLE; for transfers.
    [[nodiscard]] virtual std::intptr_t SystemHandle() const = 0;

    /// True when new entries inherit rights from the folder instead of getting the mode that they were created with.
    [[nodiscard]] virtual bool PassesOnRights() const = 0;
};

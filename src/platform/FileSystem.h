// The folders an activity works on, and the transfer of files between them: in batches, with the bytes on disk before a
// name appears in the destination, and no source removed before its copy is safe. Errors are codes, or go to the
// observer; a failure leaves the source and an old destination whole.
#pragma once

#include "ReadAhead.h"
#include <set>

class Trash;

/// Follows a transfer.
class TransferObserver {
  public:
    virtual ~TransferObserver() = default;

    /// One file or folder could not be transferred. It stays where it is.
    virtual void Failed(const std::filesystem::path& source, std::error_code error) = 0;

    /// One more file has been copied or moved, or waits to get its name; or a whole folder was moved by one rename.
    virtual void Transferred() = 0;

    /// Called often during long work (at least once for every few MiB). Events may run inside.
    virtual void Progress(std::uint64_t bytes) = 0;

    /// Asked while a file is copied; true discards the copy (std::errc::operation_canceled).
    [[nodiscard]] virtual bool MustGiveUp() = 0;

    /// Asked between the files of a whole folder; true ends its transfer after the current file.
    [[nodiscard]] virtual bool StopRequested() = 0;

    /// True where LeavesOut may say yes: no folder is moved as a whole then.
    [[nodiscard]] virtual bool MayLeaveOut() { return false; }

    /// Asked for each file of a whole folder; true leaves it for a later transfer, and the folder unfinished.
    [[nodiscard]] virtual bool LeavesOut(const FileFacts& /*file*/) { return false; }
    virtual void LeftOut(const std::filesystem::path& /*source*/) {}
};

/// A file as the walk saw it.
struct TransferFile {
    std::shared_ptr<Folder> source;
    std::shared_ptr<Folder> destination;
    std::filesystem::path name;
    FileFacts facts; ///< of the source; when size or time differ at copy time, the copy is discarded
    /// The destination when the transfer was decided; nullopt: it was free. If it is something else when the file is to
    /// get its name, the file fails (std::errc::resource_unavailable_try_again).
    std::optional<FileFacts> replaced;
};

/// Owns the staged temporaries of one run. Never throws.
class FileTransfer {
  public:
    virtual ~FileTransfer() = default;

    /// Copies one file to a free name or over the file that `replaced` describes. The copy has the source's bytes,
    /// modification time, permission bits and, as far as possible, extended attributes. It appears in one step, at the
    /// latest at Commit; until then the old file stays. False when the file has already failed.
    [[nodiscard]] virtual bool Copy(const TransferFile& file) = 0;

    /// Moves one file: a rename, or copy, sync, rename and unlink across devices. False as with Copy.
    [[nodiscard]] virtual bool Move(const TransferFile& file) = 0;

    /// Finishes a move that was interrupted when the copy was in place: removes the source if both files hold the same
    /// bytes. False when it stays.
    [[nodiscard]] virtual bool CompleteMove(const TransferFile& file) = 0;

    /// Copies a folder that was listed and that the destination lacks, with everything in it except links to folders,
    /// special files, and the folders of `excluded` with their content. Where an earlier run has left the folder
    /// unfinished (UnfinishedWork::isNewFolder), copies what it lacks.
    virtual void CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                          const FolderEntry& entry, const std::set<FileId>& excluded) = 0;

    /// The same, and removes each source when its copy is safe. An entry that cannot be transferred stays.
    virtual void MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                          const FolderEntry& entry, const std::set<FileId>& excluded) = 0;

    /// Flushes everything staged, puts it in place and brings the names to disk. The destructor calls it too. Events
    /// that run in Progress may call it again.
    virtual void Commit() = 0;
};

class FileSystem {
  public:
    virtual ~FileSystem() = default;

    /// Opens a folder by path; the path itself may be a link. Null with the reason when it is no folder or cannot be
    /// opened.
    [[nodiscard]] virtual std::shared_ptr<Folder> OpenFolder(const std::filesystem::path& path,
                                                             std::error_code& error) = 0;

    /// A transfer for one run. With a `trash`, a replaced file is kept there; one that cannot be kept is not replaced.
    /// Both must outlive it.
    [[nodiscard]] virtual std::unique_ptr<FileTransfer> NewTransfer(TransferObserver& observer, Trash* trash) = 0;

    /// Begins to read two folders. Null where nothing can be read ahead.
    [[nodiscard]] virtual std::unique_ptr<ReadAhead> Begin(ReadAhead::Order order) = 0;
};

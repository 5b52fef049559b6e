// Copies and moves files for one run, in batches: bytes are on disk before a name appears in the destination, and a
// source goes only when its copy is safe. Owns the staged temporaries. It never throws; every failure goes to the
// observer, and a failure leaves the source and an old destination whole.
#pragma once

#include "Folder.h"
#include <set>

/// Hears of what happens inside a transfer.
class TransferObserver {
  public:
    virtual ~TransferObserver() = default;

    /// One file or folder could not be transferred. It stays where it is.
    virtual void Failed(const std::filesystem::path& source, std::error_code error) = 0;

    /// One more file has been copied or moved, or waits to get its name.
    virtual void Transferred() = 0;

    /// Called often during long work (at least once for every few MiB). Events may run inside.
    virtual void Progress(std::uint64_t bytes) = 0;

    /// Asked while a file is copied; true discards the copy (std::errc::operation_canceled).
    [[nodiscard]] virtual bool MustGiveUp() = 0;

    /// Asked between files of a folder that is transferred whole; true ends it after the present file.
    [[nodiscard]] virtual bool StopRequested() = 0;
};

/// A file as the walk saw it.
struct TransferFile {
    std::shared_ptr<Folder> source;
    std::shared_ptr<Folder> destination;
    std::filesystem::path name;
    FileFacts facts; ///< of the source; when size or time differ at copy time, the copy is discarded
    /// What stood at the destination when the transfer was decided; nullopt: nothing. When it is something else by the
    /// time the file would get its name, the file fails (std::errc::resource_unavailable_try_again).
    std::optional<FileFacts> replaced;
};

class FileTransfer {
  public:
    virtual ~FileTransfer() = default;

    /// Copies one file to a free name or over the file that `replaced` tells of. The new file has the source's bytes,
    /// modification time, permission bits and, as far as possible, extended attributes. It appears in one step, at the
    /// latest at Commit; until then the old one stands. False when the file has failed already.
    [[nodiscard]] virtual bool Copy(const TransferFile& file) = 0;

    /// Moves one file: a rename, or copy, sync, rename and unlink across devices. False as with Copy.
    [[nodiscard]] virtual bool Move(const TransferFile& file) = 0;

    /// Transfers a folder that was listed and that the destination lacks, with everything in it. Links to folders and
    /// special files are left out, and so is every folder of `excluded` with its content.
    virtual void CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                          const FolderEntry& entry, const std::set<FileId>& excluded) = 0;

    /// The same, each source removed when its copy is safe; what cannot be transferred stays where it is.
    virtual void MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                          const FolderEntry& entry, const std::set<FileId>& excluded) = 0;

    /// Brings everything that is staged to disk and into place. Called by the destructor too. Events that run in a
    /// transfer's Progress may call it again.
    virtual void Commit() = 0;
};

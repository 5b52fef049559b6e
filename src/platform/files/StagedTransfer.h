// The transfer of one run: stages files as unnamed or hidden temporaries, syncs them in batches, then names them. What
// lies on the same disk is moved by renaming.
#pragma once

#include "CommitQueue.h"
#include "FileStager.h"
#include "FileSystem.h"

#include <set>
#include <utility>

class StagedTransfer final : public FileTransfer {
  public:
    /// `trash` may be null: what is replaced is gone then.
    StagedTransfer(TransferObserver& observer, Trash* trash);

    bool Copy(const TransferFile& file) override;
    bool Move(const TransferFile& file) override;
    bool CompleteMove(const TransferFile& file) override;
    void CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                  const FolderEntry& entry, const std::set<FileId>& excluded) override;
    void MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                  const FolderEntry& entry, const std::set<FileId>& excluded) override;
    void Commit() override { m_queue.Commit(); }

  private:
    struct Tree {
        std::shared_ptr<Folder> source;
        std::shared_ptr<Folder> destination;
        FolderEntry entry;
    };

    [[nodiscard]] bool checkFile(const TransferFile& file, FileJob& job);
    [[nodiscard]] bool checkTree(const Tree& tree, const std::set<FileId>& excluded);
    bool stage(const FileJob& job);
    bool move(const FileJob& job);
    [[nodiscard]] bool moveByRename(const Tree& tree);
    [[nodiscard]] std::error_code renameOver(const FileJob& job);
    [[nodiscard]] std::error_code moveByRename(const FileJob& job, bool& isElsewhere);

    TransferObserver& m_observer;
    Trash* m_trash;
    TemporaryFiles m_temporaries;
    FileStager m_stager;
    std::set<std::pair<std::uint64_t, std::uint64_t>> m_apart; ///< device pairs for which rename() failed with EXDEV
    CommitQueue m_queue;                                       ///< last: its destructor uses the others
};

// File transfers by raw system calls on folder descriptors: staged as unnamed or hidden temporary files, brought to
// disk in batches, then named. Failures go to the observer.
#pragma once

#include "CommitQueue.h"
#include "FileStager.h"

class LinuxFileTransfer final : public FileTransfer {
  public:
    explicit LinuxFileTransfer(TransferObserver& observer);

    bool Copy(const TransferFile& file) override;
    bool Move(const TransferFile& file) override;
    void CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                  const FolderEntry& entry, const std::set<FileId>& excluded) override;
    void MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                  const FolderEntry& entry, const std::set<FileId>& excluded) override;
    void Commit() override { m_queue.Flush(); }

  private:
    struct Tree {
        std::shared_ptr<LinuxFolder> source;
        std::shared_ptr<LinuxFolder> destination;
        FolderEntry entry;
    };

    [[nodiscard]] bool checkFile(const TransferFile& file, FileJob& job);
    [[nodiscard]] bool checkTree(const Tree& tree, const std::set<FileId>& excluded);
    bool stage(const FileJob& job);
    bool move(const FileJob& job);
    [[nodiscard]] std::error_code moveByRename(const FileJob& job, bool& isElsewhere);

    TransferObserver& m_observer;
    TemporaryFiles m_temporaries;
    FileStager m_stager;
    std::set<std::pair<std::uint64_t, std::uint64_t>> m_apart; ///< device pairs for which rename() failed with EXDEV
    CommitQueue m_queue;                                       ///< last: its end uses the others
};

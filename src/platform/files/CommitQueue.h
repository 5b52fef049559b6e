// Double-buffered: one batch syncs while the next fills. Files are placed in the order in which they were added. The
// destructor flushes both batches. Failures go to the observer.
#pragma once

#include "TransferBatch.h"

class CommitQueue final {
  public:
    CommitQueue(TransferObserver& observer, TemporaryFiles& temporaries, Trash* trash);
    CommitQueue(const CommitQueue&) = delete;
    CommitQueue& operator=(const CommitQueue&) = delete;
    ~CommitQueue() { Commit(); }

    /// To be called before anything is written to the folder's file system: errors are reported from now on. Gives the
    /// number of the batch for StagedFile::batch.
    [[nodiscard]] unsigned WillWrite(const Folder& folder) { return m_filling->WillWrite(folder); }

    [[nodiscard]] WorkMark MarkNew(const std::shared_ptr<Folder>& folder) const {
        return m_temporaries.Mark(folder, TemporaryKind::NewFolder);
    }

    template <typename Staged>
    void Add(Staged staged) {
        m_filling->Add(std::move(staged));
        if (m_filling->IsFull(m_descriptorLimit))
            turn();
    }

    [[nodiscard]] bool IsEmpty() const { return !m_syncing && m_filling->IsEmpty(); }
    [[nodiscard]] bool Holds(const FileId& folder, const std::filesystem::path& name) const;

    /// A file or folder has been renamed into this folder.
    void WasRenamed(const std::shared_ptr<Folder>& folder) { m_names.Add(folder); }

    /// Returns when everything added so far is in place with its bytes on disk, or has failed. Events that run
    /// meanwhile may call it again.
    void Flush();

    /// The same, and the names are on disk.
    void Commit();

  private:
    void turn();
    void finishSyncing();

    TransferObserver& m_observer;
    TemporaryFiles& m_temporaries;
    Trash* m_trash;
    std::size_t m_descriptorLimit;
    DiskSync m_sync;
    PlacedNames m_names;
    unsigned m_batches = 0;
    std::unique_ptr<TransferBatch> m_filling;
    std::shared_ptr<TransferBatch> m_syncing; ///< shared with the nested calls that wait for it
};

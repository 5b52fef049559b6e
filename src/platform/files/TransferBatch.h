// A group of files and folders that is synced and put in place together. Owns the staged temporaries; whatever was not
// placed vanishes with the batch. Failures go to the observer.
#pragma once

#include "BackgroundTask.h"
#include "DiskSync.h"
#include "FileSystem.h"
#include "PlacedNames.h"
#include "TemporaryFiles.h"

#include <vector>

class TransferBatch final {
  public:
    TransferBatch(DiskSync& sync, PlacedNames& names, Trash* trash, unsigned number)
        : m_sync(sync), m_names(names), m_trash(trash), m_number(number) {}

    /// Opens what reports write errors; gives the number of this batch.
    [[nodiscard]] unsigned WillWrite(const Folder& folder);
    void Add(StagedFile file);
    void Add(StagedFolder folder);
    [[nodiscard]] bool IsEmpty() const { return m_files.empty() && m_folders.empty(); }

    /// True when a file of this batch will take this name.
    [[nodiscard]] bool Holds(const FileId& folder, const std::filesystem::path& name) const;

    /// True when it holds enough descriptors or bytes to be flushed.
    [[nodiscard]] bool IsFull(std::size_t descriptorLimit) const;

    /// Starts to sync the bytes on the helper thread. Nothing may be added from now on.
    void StartSync();

    /// Waits for the sync, gives the files their names and removes the sources of moved files. Events that run while it
    /// waits may call it again: the inner call does the rest, and the outer one finds it done.
    void Finish(TemporaryFiles& temporaries, TransferObserver& observer);

  private:
    enum class Stage { Contents, Keeping, Names, Removing, Removals, Done };

    void markMoves(const TemporaryFiles& temporaries);
    void keepReplaced();
    void place(TemporaryFiles& temporaries, TransferObserver& observer);
    void startNames();
    void finishNames(TransferObserver& observer);
    void removeSources(TransferObserver& observer);
    void finishRemovals(TransferObserver& observer);
    void finishFolders(TransferObserver& observer);

    DiskSync& m_sync;
    PlacedNames& m_names;
    Trash* m_trash;
    unsigned m_number;
    SyncPoints m_syncPoints;
    std::vector<StagedFile> m_files;
    std::vector<StagedFolder> m_folders;
    std::vector<WorkMark> m_marks;
    PlacedNames m_removals;
    std::vector<PlacedNames::Failure> m_failedRemovals;
    std::error_code m_keeping; ///< of the sync of what is kept
    std::uint64_t m_bytes = 0;
    std::size_t m_descriptors = 0;
    Stage m_stage = Stage::Contents;
    BackgroundTask m_task; ///< last: its destructor waits for the work on the files
};

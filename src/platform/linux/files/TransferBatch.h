// The files and folders that are brought to disk and into place together. Owns the staged temporaries; what was not
// placed vanishes with the batch. Failures go to the observer.
#pragma once

#include "BackgroundTask.h"
#include "FileJob.h"
#include "TemporaryFiles.h"

#include <vector>

class TransferBatch final {
  public:
    void Add(StagedFile file);
    void Add(StagedFolder folder);
    [[nodiscard]] bool IsEmpty() const { return m_files.empty() && m_folders.empty(); }

    /// True when a file waits to appear under this name.
    [[nodiscard]] bool Holds(const FileId& folder, const std::filesystem::path& name) const;

    /// True when it should wait no longer: too many open descriptors or bytes.
    [[nodiscard]] bool IsFull(std::size_t descriptorLimit) const;

    /// Begins to bring the bytes to disk, beside the calling thread. Nothing may be added from now on.
    void StartSync();

    /// Waits for the bytes, gives the files their names and removes the sources that were to go. Events run while it
    /// waits and may call it again: the inner call does what is left, the outer one finds it done.
    void Finish(TemporaryFiles& temporaries, TransferObserver& observer);

  private:
    enum class Stage { Contents, Names, Done };

    void place(TemporaryFiles& temporaries, TransferObserver& observer);
    void startNames();
    void finishNames(TransferObserver& observer);
    void removeSources(TransferObserver& observer);
    void finishFolders(TransferObserver& observer);

    std::vector<StagedFile> m_files;
    std::vector<StagedFolder> m_folders;
    std::uint64_t m_bytes = 0;
    std::size_t m_descriptors = 0;
    Stage m_stage = Stage::Contents;
    std::error_code m_namesError; ///< of bringing the names to disk
    BackgroundTask m_task;        ///< last: its end waits for the work on the files
};

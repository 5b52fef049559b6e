// Transfers one folder with everything in it, file by file, or the rest of one that an earlier run has left unfinished.
// Remembers the folders it created, so that it never walks into its own work. Failures go to the observer and the walk
// goes on.
#pragma once

#include "CommitQueue.h"

#include <set>

class TreeTransfer final {
  public:
    /// `transferFile` is called for each file; `excluded` folders are skipped with their content.
    TreeTransfer(TransferObserver& observer, CommitQueue& queue, std::function<void(const FileJob&)> transferFile,
                 const std::set<FileId>& excluded, bool removeSources);

    /// Creates the folder of this name in `destination` and fills it from the one in `source`, which must still be the
    /// one that was listed. Where the folder exists unfinished, fills in what it lacks.
    void Run(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
             const FolderEntry& entry);

  private:
    [[nodiscard]] std::error_code enter(const std::shared_ptr<Folder>& source,
                                        const std::shared_ptr<Folder>& destination, const FolderEntry& entry);
    [[nodiscard]] std::shared_ptr<Folder> open(const Folder& parent, const FolderEntry& entry, std::error_code& error);
    [[nodiscard]] std::error_code makeOrResume(const Folder& parent, const std::filesystem::path& name,
                                               StagedFolder& folder, bool& isResumed);
    void transferEntries(const StagedFolder& folder, const std::vector<FolderEntry>& entries, bool isResumed);
    void transferEntry(const StagedFolder& folder, const FolderEntry& entry, bool isResumed);

    TransferObserver& m_observer;
    CommitQueue& m_queue;
    std::function<void(const FileJob&)> m_transferFile;
    const std::set<FileId>& m_excluded;
    bool m_removeSources;
    std::set<FileId> m_made;
    int m_depth = 0;
    bool m_isInResumed = false; ///< a folder above was there
    bool m_isStopped = false;
    bool m_leavesOut = false; ///< a file of the folder under way, at whatever depth
};

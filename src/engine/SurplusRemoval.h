// Deletes a folder that a mirror's destination has and its source lacks. Before each deletion the run
// checks whether it may; deleting never follows a link, crosses a mount or takes a file of the program itself. Failures
// are logged and counted.
#pragma once

#include "Folder.h"

class SyncRun;
struct FolderPair;

class SurplusRemoval final {
  public:
    /// `entry` is a folder of the pair's destination.
    SurplusRemoval(SyncRun& run, FolderPair& pair, const FolderEntry& entry);

    /// Deletes everything in it that passes the filter, then the folders left empty. Links to folders, special files
    /// and the run's own roots stay, and with them the folders they are in.
    void DeleteTree();

  private:
    // Each returns whether the entry is gone.
    [[nodiscard]] bool emptyFolder(Folder& parent, const FolderEntry& entry, int depth);
    [[nodiscard]] bool deleteEntry(Folder& folder, const FolderEntry& entry, int depth);
    [[nodiscard]] bool deleteFile(Folder& folder, const FolderEntry& entry);
    [[nodiscard]] std::shared_ptr<Folder> open(Folder& parent, const FolderEntry& entry,
                                               std::vector<FolderEntry>& entries);
    [[nodiscard]] bool mayDelete();

    SyncRun& m_run;
    FolderPair& m_pair;
    const FolderEntry& m_entry;
    unsigned m_lookedAt; ///< the interruptions when the source was last seen to lack the folder
    bool m_cameBack = false;
};

// What one run does with the files that it deletes, and with those that earlier runs have kept for long enough. Keeps
// them where the activity says so: what cannot be kept then stays where it is and fails.
#pragma once

#include "KeptRuns.h"

class Clock;
class SyncRun;

class RunTrash final {
  public:
    /// `root`: of the destination. `expires`: Finish removes what earlier runs have kept for long enough.
    RunTrash(SyncRun& run, std::shared_ptr<Folder> root, bool expires);

    /// Null for an activity that keeps nothing.
    [[nodiscard]] Trash* Get() { return m_trash ? &*m_trash : nullptr; }

    /// Keeps or deletes a file, a link or an empty folder.
    [[nodiscard]] std::error_code Delete(Folder& folder, const FolderEntry& entry);

    /// At the end of the run: says where its files are.
    void Finish();

    /// A run that begins now.
    [[nodiscard]] static KeptRun NewRun(const Clock& clock, const QString& activityFile, const QString& activity,
                                        int days);

  private:
    SyncRun& m_run;
    std::shared_ptr<Folder> m_root;
    bool m_expires;
    KeptRun m_kept;
    std::optional<Trash> m_trash;
};

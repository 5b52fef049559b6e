// The runs whose deleted and replaced files are kept below one destination: lists them, brings their files back,
// removes what has expired. What cannot be read is neither listed nor removed.
#pragma once

#include "KeptRun.h"
#include "Trash.h"

#include <optional>
#include <vector>

class TransferObserver;

/// Follows Restore. Events may run in Progress.
class RestoreObserver {
  public:
    virtual ~RestoreObserver() = default;

    /// True for the file that the run has put there: `now` is what was found, `placed` what the journal says.
    [[nodiscard]] virtual bool IsAsPlaced(const FileFacts& now, const FileFacts& placed) = 0;
    /// A file is in its place again, or a folder.
    virtual void Restored(const std::filesystem::path& path) = 0;
    /// It stays in the trash. std::errc::file_exists: something else has its name now.
    virtual void NotRestored(const std::filesystem::path& path, std::error_code error) = 0;
    virtual void Progress() = 0;
    /// True ends the work after the present file.
    [[nodiscard]] virtual bool StopRequested() = 0;
};

namespace KeptRuns {

/// The newest first.
[[nodiscard]] std::vector<KeptRun> Of(const Folder& root);

/// Removes the files of every run that has expired. What cannot be removed goes to the observer and is tried again at
/// the next call.
void RemoveExpired(const std::shared_ptr<Folder>& root, std::chrono::sys_seconds now, TransferObserver& observer);

/// Brings back what the run has deleted or replaced. What it had put in a file's place goes to `trash`; what somebody
/// else has put there stays, and so does the kept file. Fails where there is no such run; can be called again for what
/// is left.
[[nodiscard]] std::error_code Restore(const std::shared_ptr<Folder>& root, const std::filesystem::path& run,
                                      Trash& trash, RestoreObserver& observer);

} // namespace KeptRuns

// The last step of a move across devices: the source goes when its copy is safe and it is still what was copied.
// Failures are error codes and leave the source.
#pragma once

#include "FileJob.h"
#include "FileSystem.h"

/// Removes the source of a file that is placed. std::errc::resource_unavailable_try_again when it has changed since it
/// was copied; a change of nothing but its status is settled by comparing the bytes.
[[nodiscard]] std::error_code RemoveSource(const StagedFile& file, TransferObserver& observer);

/// Finishes a move that was interrupted when the copy was in place: if both files hold the same bytes, the copy is
/// synced and the source removed. False when it stays.
[[nodiscard]] bool RemoveSourceOfEqualFile(const FileJob& job, TransferObserver& observer);

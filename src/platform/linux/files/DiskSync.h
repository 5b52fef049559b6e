// Flushes staged files, and later their names, to disk. The functions touch nothing but their arguments, so that they
// can run on a helper thread while the caller goes on copying.
#pragma once

#include "FileJob.h"

#include <vector>

/// Flushes the bytes of every file; a failure goes to the file's `error`.
void SyncContents(std::vector<StagedFile>& files);

/// Flushes the names of placed files and new folders in these folders.
[[nodiscard]] std::error_code SyncNames(const std::vector<std::shared_ptr<Folder>>& folders);

// Brings staged files, and later their names, to disk. Free functions, no state: they touch nothing but the files they
// are given, so that they can run beside the thread that copies.
#pragma once

#include "FileJob.h"

#include <vector>

/// The bytes of every file; a failure is noted in the file's `error`.
void SyncContents(std::vector<StagedFile>& files);

/// The names that placed files and new folders have got in these folders.
[[nodiscard]] std::error_code SyncNames(const std::vector<std::shared_ptr<LinuxFolder>>& folders);

// Flushes staged files, and later the names of moved ones, to disk. Touches nothing but its arguments, so that it can
// run on a helper thread.
#pragma once

#include "FileJob.h"

#include <vector>

/// Windows reports write errors to each flush of a file: nothing has to be open before.
class SyncPoints final {
  public:
    void Open(const Folder& /*folder*/) {}
};

class DiskSync final {
  public:
    /// Flushes the bytes of every file; a failure goes to the file's `error`.
    void SyncContents(std::vector<StagedFile>& files, const SyncPoints& points);

    /// Flushes the names of placed files that are to lose their source. A failure goes to the `error` of the file.
    /// A disk with a journal brings the folders above along.
    void SyncNames(std::vector<StagedFile>& files, std::vector<StagedFolder>& folders, const SyncPoints& points);
};

/// Windows cannot flush a folder. Names of copies, whose sources stay, get to disk with its journal.
enum class NamesOf { Folder, FileSystem };
[[nodiscard]] inline std::error_code SyncNewNames(const Folder& /*folder*/, NamesOf /*which*/) {
    return {};
}

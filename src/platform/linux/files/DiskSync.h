// Flushes staged files, and later their names, to disk. Remembers for one run which file systems have failed. The
// operations touch nothing but their arguments and that memory, so that they can run on a helper thread, one at a time.
#pragma once

#include "FileJob.h"

#include <functional>
#include <map>
#include <set>
#include <vector>

/// The folders, one for each device, that syncs of a whole file system go through. Linux reports a write error once to
/// each descriptor, and only errors that are newer than the descriptor. So a batch opens its own before its first
/// write: the sync of another batch cannot take its errors away.
class SyncPoints final {
  public:
    /// To be called before anything is written to the folder's device. Without descriptors to spare nothing is opened,
    /// and every file is synced by itself.
    void Open(const Folder& folder);

    /// -1: there is none.
    [[nodiscard]] int On(std::uint64_t device) const;

  private:
    std::map<std::uint64_t, FileDescriptor> m_folders;
};

class DiskSync final {
  public:
    /// Flushes the bytes of every file; a failure goes to the file's `error`.
    void SyncContents(std::vector<StagedFile>& files, const SyncPoints& points);

    /// Flushes the names of placed files that are to lose their source, and those of new folders. A failure goes to the
    /// `error` of the file or folder.
    void SyncNames(std::vector<StagedFile>& files, std::vector<StagedFolder>& folders, const SyncPoints& points);

  private:
    struct Names {
        std::vector<StagedFile*> files;
        std::vector<StagedFolder*> folders;
    };

    void syncContents(std::uint64_t device, const std::vector<StagedFile*>& files, int point);
    void syncNames(std::uint64_t device, const Names& names, int point);
    [[nodiscard]] bool syncTogether(std::uint64_t device, int point, const std::function<std::error_code()>& witness);

    std::set<std::uint64_t> m_failed; ///< devices on which only the sync of a single file is believed
};

/// Flushes the names in these folders, one by one.
[[nodiscard]] std::error_code SyncFolders(const std::vector<std::shared_ptr<Folder>>& folders);

/// Flushes the names that were made in the folder, or in all folders of its file system, and makes sure that the disk
/// still takes changes.
enum class NamesOf { Folder, FileSystem };
[[nodiscard]] std::error_code SyncNewNames(const Folder& folder, NamesOf which);

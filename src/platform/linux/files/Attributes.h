// Copies everything except the bytes from a source to its copy. Remembers the owner of new files in the last folder,
// which saves a system call for most files. Failures are error codes.
#pragma once

#include "TemporaryFile.h"

#include <sys/stat.h>

/// In each call `status` was read from the open `source` before. Owner and group are kept where the process may set
/// them, else the group where it may. A copy that could not keep the group gives the new group no more than others had,
/// and keeps the set-user and set-group bits only for the same user and group. The copy ends up with the source's
/// access list or none, never with one inherited from its folder. A file system without such attributes is no failure.
class Attributes final {
  public:
    /// Copies owner, extended attributes (as far as possible), access list, permission bits and times. `hasMode`: the
    /// copy was created with the source's bits.
    [[nodiscard]] std::error_code CopyToFile(int source, const struct stat& status, const TemporaryFile& copy,
                                             bool hasMode);

    /// The same for a folder; call it when all of its entries are in place.
    [[nodiscard]] static std::error_code CopyToFolder(const Folder& source, const EntryStatus& status,
                                                      const Folder& copy);

    /// Copies all but the times, for a file that will replace `source`.
    [[nodiscard]] static std::error_code CopyToReplacement(int source, const struct stat& status, int copy);

  private:
    std::weak_ptr<Folder> m_folder;
    uid_t m_user = 0; ///< owner of new files in m_folder
    gid_t m_group = 0;
};

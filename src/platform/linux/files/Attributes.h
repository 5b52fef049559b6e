// What a copy takes over from its source beside the bytes. Remembers whom new files of the last folder belong to, so
// that most files need not be asked. Failures are error codes.
#pragma once

#include "TemporaryFile.h"

#include <sys/stat.h>

/// Everywhere: `status` is that of the open `source`, read before. Owner and group are taken over where the process may
/// set them, else the group where it may. Where the group could not be kept, the new one gets no more than others had;
/// set-user and set-group bits only where user and group are the same. The copy ends with the source's access list or
/// none, never with one that it took from its folder. A file system that has no such things is no failure.
class Attributes final {
  public:
    /// Owner, extended attributes (as far as possible), access list, permission bits and times. `hasMode`: the copy was
    /// made with the source's bits.
    [[nodiscard]] std::error_code CopyToFile(int source, const struct stat& status, const TemporaryFile& copy,
                                             bool hasMode);

    /// The same for a folder, whose entries are all in place.
    [[nodiscard]] static std::error_code CopyToFolder(int source, const struct stat& status, int copy);

    /// All but the times, for a file that is going to replace `source`.
    [[nodiscard]] static std::error_code CopyToReplacement(int source, const struct stat& status, int copy);

  private:
    std::weak_ptr<LinuxFolder> m_folder;
    uid_t m_user = 0; ///< of new files in m_folder
    gid_t m_group = 0;
};

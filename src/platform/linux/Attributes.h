// What a copy takes over from its source beside the bytes. Free function, no state; failures are error codes.
#pragma once

#include <sys/stat.h>
#include <system_error>

/// Gives the open file or folder `copy` the extended attributes (as far as possible), permission bits and times of the
/// open `source`, whose `status` was read before. Set-user and set-group bits only where user and group are the same.
/// A file system that has no such bits or times of a foreign owner is no failure. `hasMode`: the bits are right
/// already.
[[nodiscard]] std::error_code CopyAttributes(int source, const struct stat& status, int copy, bool hasMode);

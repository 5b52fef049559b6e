// Gives copies what their sources have beside the bytes: modification time and attributes (read-only, hidden, system,
// archive, not indexed). Rights come from the folder that a copy lies in, as with every new file; the time of creation
// is its own. Failures are error codes.
#pragma once

#include "TemporaryFile.h"

namespace Attributes {

[[nodiscard]] std::error_code CopyToFile(const EntryStatus& status, HANDLE copy);

/// Call it when all entries of the copy are in place.
[[nodiscard]] std::error_code CopyToFolder(const Folder& source, const EntryStatus& status, const Folder& copy);

} // namespace Attributes

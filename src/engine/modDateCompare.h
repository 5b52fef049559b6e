// Three-way comparison of file times that were stored by different file systems.
#pragma once

#include "FileFacts.h"

namespace modDateCompare {

/// -1 when a is earlier than b, 0 when they are the same moment, 1 when it is later. Both are first cut to the coarser
/// of their two precisions, so a copy on a file system that stores less never looks older for ever.
[[nodiscard]] int Compare(const FileTime& a, const FileTime& b);

} // namespace modDateCompare

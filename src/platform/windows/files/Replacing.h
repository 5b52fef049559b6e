// The rename over a file. One that is open elsewhere or read-only stays, and so does the other.
#pragma once

#include "Handle.h"

#include <filesystem>
#include <system_error>

namespace Replacing {

/// `entry` was opened with DELETE. std::errc::device_or_resource_busy when the old file is open elsewhere,
/// permission_denied when it is read-only.
[[nodiscard]] std::error_code Rename(HANDLE entry, HANDLE folder, const std::filesystem::path& name);

} // namespace Replacing

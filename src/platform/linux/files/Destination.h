// The rules for the place a file is to appear at. Free functions, no state; failures are error codes.
#pragma once

#include "FileJob.h"

enum class DestinationState {
    Free,        ///< nothing of this name
    Replaceable, ///< the file, or link to a file, that was decided to be replaced
    IsSource     ///< the very file that is to be transferred
};

/// Looks at the entry under the name of `job`. std::errc::is_a_directory for a folder, file_exists for whatever else no
/// file may replace, resource_unavailable_try_again when it is not what the job was decided to replace.
[[nodiscard]] std::error_code CheckDestination(const FileJob& job, DestinationState& state);

/// A rename that replaces nothing, on file systems too that know only the replacing kind (then after a look).
[[nodiscard]] std::error_code RenameToFreeName(const LinuxFolder& from, const char* oldName, const LinuxFolder& to,
                                               const std::filesystem::path& newName);

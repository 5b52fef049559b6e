// The rules for the place a file is to appear at. Free functions, no state; failures are error codes.
#pragma once

#include "LinuxFolder.h"

enum class DestinationState {
    Free,        ///< nothing of this name
    Replaceable, ///< a file or a link to a file
    IsSource     ///< the very file that is to be transferred
};

/// Looks at the entry `name`. std::errc::is_a_directory for a folder, file_exists for whatever else no file may
/// replace.
[[nodiscard]] std::error_code CheckDestination(const LinuxFolder& folder, const std::filesystem::path& name,
                                               const FileId& source, DestinationState& state);

/// A rename that replaces nothing, on file systems too that know only the replacing kind (then after a look).
[[nodiscard]] std::error_code RenameToFreeName(const LinuxFolder& from, const char* oldName, const LinuxFolder& to,
                                               const std::filesystem::path& newName);

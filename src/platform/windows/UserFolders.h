// The folders that programs keep the user's data in. Empty when the user has none.
#pragma once

#include <filesystem>

namespace UserFolders {

/// What goes with the user from machine to machine (AppData/Roaming).
[[nodiscard]] std::filesystem::path OfTheUser();

/// What is true on this machine only (AppData/Local).
[[nodiscard]] std::filesystem::path OfThisMachine();

} // namespace UserFolders

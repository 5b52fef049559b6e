// The user's base folders as the XDG base directory specification (0.8) names them. Read from the environment at each
// call; owns nothing. A relative value in the environment is invalid there and counts as unset. Empty when even the
// home folder is unknown.
#pragma once

#include <filesystem>

namespace XdgFolders {

/// $XDG_DATA_HOME, else ~/.local/share.
[[nodiscard]] std::filesystem::path DataHome();

/// $XDG_CONFIG_HOME, else ~/.config.
[[nodiscard]] std::filesystem::path ConfigHome();

/// $XDG_STATE_HOME, else ~/.local/state.
[[nodiscard]] std::filesystem::path StateHome();

} // namespace XdgFolders

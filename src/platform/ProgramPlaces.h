// The folders of the program itself. A plain value, made once at start.
#pragma once

#include <filesystem>

struct ProgramPlaces {
    /// The folder the executable lies in, links resolved.
    std::filesystem::path programFolder;
    /// The user's data folder for this program (XDG basedir: $XDG_DATA_HOME/Kalvenor); it need not exist yet.
    std::filesystem::path userDataFolder;
};

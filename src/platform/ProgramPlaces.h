// The folders of the program itself. A plain value, made once at start.
#pragma once

#include <filesystem>
#include <string>

struct ProgramPlaces {
    /// The folder the executable lies in, links resolved.
    std::filesystem::path programFolder;
    /// What comes with the program and is only read: the manual, the icon of activity files. The folder of the program,
    /// except where a package has installed it.
    std::filesystem::path dataFolder;
    /// The user's data folder for this program (XDG basedir: $XDG_DATA_HOME/Kalvenor); it need not exist yet.
    std::filesystem::path userDataFolder;
    /// A package has put the program where it lies: nothing is written beside it, whoever runs it.
    bool isInstalled = false;
    /// The desktop entry that stands for the window, without ".desktop"; empty where the system knows no such thing.
    std::string desktopEntry{};
};

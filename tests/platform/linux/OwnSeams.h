// The seams of Linux on places of a test's own, below `place`, a folder.
#pragma once

#include "LinuxProcess.h"
#include "LinuxServices.h"

struct OwnSeams {
    explicit OwnSeams(const std::filesystem::path& place)
        : settings(MakeIniSettingsStore(place)), locks(MakeLinuxLocks(place)), autostart(MakeAutostart(place)) {}

    std::unique_ptr<SettingsStore> settings;
    std::unique_ptr<Locks> locks;
    std::unique_ptr<Autostart> autostart;
    LinuxProcess process;
};

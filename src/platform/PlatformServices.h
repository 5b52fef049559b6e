// Everything the world outside gives, made once at start and handed down by reference. Owns the services.
#pragma once

#include "Autostart.h"
#include "Clock.h"
#include "DesktopMailClient.h"
#include "DialUp.h"
#include "EventPump.h"
#include "FileSystem.h"
#include "FileTypes.h"
#include "Locks.h"
#include "NameService.h"
#include "OwnFiles.h"
#include "PowerControl.h"
#include "Process.h"
#include "ProgramPlaces.h"
#include "ServiceManager.h"
#include "SettingsStore.h"
#include "SystemClock.h"
#include "SystemInformation.h"
#include "clsGetSystemDirectoryPaths.h"

struct PlatformServices {
    std::unique_ptr<Clock> clock;
    std::unique_ptr<EventPump> eventPump;
    std::unique_ptr<FileSystem> fileSystem;
    std::unique_ptr<OwnFiles> ownFiles;
    std::unique_ptr<SettingsStore> settings;
    std::unique_ptr<Locks> locks;
    std::unique_ptr<Process> process;
    std::unique_ptr<PowerControl> power;
    std::unique_ptr<NameService> nameService;
    std::unique_ptr<DesktopMailClient> desktopMail;
    std::unique_ptr<Autostart> autostart;
    std::unique_ptr<SystemInformation> systemInformation;
    std::unique_ptr<ServiceManager> serviceManager;
    std::unique_ptr<SystemClock> systemClock;
    std::unique_ptr<DialUp> dialUp;
    std::unique_ptr<FileTypes> fileTypes;
    ProgramPlaces places;
    clsGetSystemDirectoryPaths systemDirectories;
};

/// The services of the operating system this was built for. A QCoreApplication must exist.
[[nodiscard]] PlatformServices MakePlatformServices();

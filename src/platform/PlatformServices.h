// All services of the operating system, made once at start and handed down by reference. Owns them.
#pragma once

#include "Clock.h"
#include "DesktopEntries.h"
#include "DesktopMailClient.h"
#include "EventPump.h"
#include "FileSystem.h"
#include "FolderWatch.h"
#include "Locks.h"
#include "Machine.h"
#include "NameService.h"
#include "Notifier.h"
#include "OwnFiles.h"
#include "PasswordStore.h"
#include "Process.h"
#include "ProgramPlaces.h"
#include "ServiceManager.h"
#include "SettingsStore.h"
#include "clsGetSystemDirectoryPaths.h"

struct PlatformServices {
    std::unique_ptr<Clock> clock;
    std::unique_ptr<EventPump> eventPump;
    std::unique_ptr<FileSystem> fileSystem;
    std::unique_ptr<FolderWatches> folderWatches;
    std::unique_ptr<OwnFiles> ownFiles;
    std::unique_ptr<SettingsStore> settings;
    std::unique_ptr<Locks> locks;
    std::unique_ptr<Process> process;
    std::unique_ptr<PowerControl> power;
    std::unique_ptr<NameService> nameService;
    std::unique_ptr<DesktopMailClient> desktopMail;
    std::unique_ptr<Notifier> notifier;
    std::unique_ptr<PasswordStore> passwords;
    std::unique_ptr<Autostart> autostart;
    std::unique_ptr<ServiceManager> serviceManager;
    std::unique_ptr<SystemClock> systemClock;
    std::unique_ptr<DialUp> dialUp;
    std::unique_ptr<FileTypes> fileTypes;
    ProgramPlaces places;
    clsGetSystemDirectoryPaths systemDirectories;
};

/// The services of the system this was built for. A QCoreApplication must exist.
[[nodiscard]] PlatformServices MakePlatformServices();

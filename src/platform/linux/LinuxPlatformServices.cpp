#include "PlatformServices.h"

#include "CachedNameService.h"
#include "IniSettingsStore.h"
#include "LinuxAutostart.h"
#include "LinuxClock.h"
#include "LinuxDialUp.h"
#include "LinuxEventPump.h"
#include "LinuxFileSystem.h"
#include "LinuxFileTypes.h"
#include "LinuxLocks.h"
#include "LinuxNameService.h"
#include "LinuxOwnFiles.h"
#include "LinuxPowerControl.h"
#include "LinuxProcess.h"
#include "LinuxServiceManager.h"
#include "LinuxSystemClock.h"
#include "LinuxSystemInformation.h"
#include "XdgFolders.h"
#include <QCoreApplication>
#include <QFile>
#include <csignal>

namespace {

std::filesystem::path programFolder() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error)
        return program.parent_path();
    return QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
}

std::filesystem::path userDataFolder() {
    const auto base = XdgFolders::DataHome();
    return base.empty() ? base : base / "Kalvenor";
}

/// A reader that has gone, or a limit on the size of files, is an error of the write and no reason to die. Unlike an
/// ignored signal, a handler is not passed on to the programs started from here.
void keepLiving() {
    struct sigaction nothing {};
    nothing.sa_handler = [](int) {};
    nothing.sa_flags = SA_RESTART;
    ::sigaction(SIGPIPE, &nothing, nullptr);
    ::sigaction(SIGXFSZ, &nothing, nullptr);
}

} // namespace

PlatformServices MakePlatformServices() {
    keepLiving();
    PlatformServices services;
    services.clock = std::make_unique<LinuxClock>();
    services.eventPump = std::make_unique<LinuxEventPump>();
    services.fileSystem = std::make_unique<LinuxFileSystem>();
    services.ownFiles = std::make_unique<LinuxOwnFiles>();
    services.settings = std::make_unique<IniSettingsStore>();
    services.locks = std::make_unique<LinuxLocks>();
    services.process = std::make_unique<LinuxProcess>();
    services.power = std::make_unique<LinuxPowerControl>();
    services.nameService = std::make_unique<CachedNameService>(std::make_unique<LinuxNameService>());
    services.desktopMail = std::make_unique<NoDesktopMailClient>();
    services.autostart = std::make_unique<LinuxAutostart>();
    services.systemInformation = std::make_unique<LinuxSystemInformation>();
    services.places = {programFolder(), userDataFolder()};
    services.systemDirectories = {"/usr", "/etc", "/"};
    // Not the path of this process: a tool beside the program may ask too.
    services.serviceManager = std::make_unique<LinuxServiceManager>(
        services.places.programFolder / "Kalvenor", XdgFolders::ConfigHome(), ServiceNotifier::FromEnvironment());
    services.systemClock = std::make_unique<LinuxSystemClock>();
    services.dialUp = std::make_unique<LinuxDialUp>();
    services.fileTypes = std::make_unique<LinuxFileTypes>(XdgFolders::DataHome(), XdgFolders::ConfigHome());
    return services;
}

#include "PlatformServices.h"

#include "InotifyWatches.h"
#include "LinuxOwnFiles.h"
#include "LinuxProcess.h"
#include "LinuxServiceManager.h"
#include "LinuxServices.h"
#include <QCoreApplication>
#include <QFile>
#include <csignal>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace {

/// The XDG base directory specification (0.8) ignores a relative value.
std::filesystem::path fromEnvironment(const char* variable) {
    const char* const value = std::getenv(variable);
    std::filesystem::path path(value == nullptr ? "" : value);
    return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path home() {
    if (auto path = fromEnvironment("HOME"); !path.empty())
        return path;
    const passwd* const user = getpwuid(getuid());
    return user == nullptr || user->pw_dir == nullptr ? "" : user->pw_dir;
}

/// Empty when even the home folder is unknown.
std::filesystem::path baseFolder(const char* variable, const char* belowHome) {
    if (auto path = fromEnvironment(variable); !path.empty())
        return path;
    const auto user = home();
    return user.empty() ? user : user / belowHome;
}

std::filesystem::path programFolder() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error)
        return program.parent_path();
    return QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
}

/// Where data of all users lie, the most important first.
std::vector<std::filesystem::path> systemData() {
    const QByteArray folders = qgetenv("XDG_DATA_DIRS");
    std::vector<std::filesystem::path> result;
    for (const QByteArray& folder : (folders.isEmpty() ? "/usr/local/share:/usr/share" : folders).split(':'))
        if (folder.startsWith('/'))
            result.emplace_back(folder.toStdString());
    return result;
}

/// Where a package puts the manual and the icons, and the unit of the service; empty in a build that is run from any
/// folder.
constexpr const char* installedData = KALVENOR_INSTALLED_DATA;
constexpr const char* installedUnit = KALVENOR_INSTALLED_UNIT;

/// A write to a closed pipe, or beyond the limit on file sizes, must fail instead of killing this process. Unlike an
/// ignored signal, a handler is not inherited by programs started from here.
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
    const auto dataHome = baseFolder("XDG_DATA_HOME", ".local/share");
    const auto configHome = baseFolder("XDG_CONFIG_HOME", ".config");
    const auto stateHome = baseFolder("XDG_STATE_HOME", ".local/state");
    PlatformServices services;
    services.clock = MakeLinuxClock();
    services.eventPump = std::make_unique<QtEventPump>();
    services.fileSystem = MakeLinuxFileSystem();
    services.folderWatches = std::make_unique<InotifyWatches>();
    services.ownFiles = std::make_unique<LinuxOwnFiles>();
    services.settings = MakeIniSettingsStore(configHome);
    services.locks = MakeLinuxLocks(stateHome);
    services.process = std::make_unique<LinuxProcess>();
    services.power = MakePowerControl();
    services.nameService = std::make_unique<CachedNameService>(MakeNameService());
    services.desktopMail = std::make_unique<NoDesktopMailClient>();
    services.autostart = MakeAutostart(configHome);
    services.places.programFolder = programFolder();
    services.places.userDataFolder = dataHome.empty() ? dataHome : dataHome / "Kalvenor";
    services.places.isInstalled = *installedData != '\0';
    services.places.dataFolder = services.places.isInstalled ? installedData : services.places.programFolder;
    services.places.desktopEntry = services.places.isInstalled ? KALVENOR_APPLICATION_ID : OwnDesktopEntry;
    services.notifier = MakeDesktopNotifier(QString::fromStdString(services.places.desktopEntry));
    services.passwords = MakePasswordStore();
    services.systemDirectories = {"/usr", "/etc", "/"};
    // Not the path of this process: it may be a tool beside the program.
    services.serviceManager = std::make_unique<LinuxServiceManager>(
        services.places.programFolder / "Kalvenor", configHome, ServiceNotifier::FromEnvironment(), installedUnit);
    services.systemClock = MakeSystemClock();
    services.dialUp = MakeDialUp();
    services.fileTypes = MakeFileTypes(dataHome, configHome, systemData());
    return services;
}

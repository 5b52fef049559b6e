#include "PlatformServices.h"

#include "DirectoryWatches.h"
#include "MachineSettings.h"
#include "RegistryKey.h"
#include "Session.h"
#include "UserFolders.h"
#include "WindowsProcess.h"
#include "WindowsServiceManager.h"
#include "WindowsServices.h"

namespace {

std::filesystem::path below(const std::filesystem::path& folder) {
    return folder.empty() ? folder : folder / L"Kalvenor";
}

/// The text of a system call that takes a buffer and answers with the length that it needs.
template <typename Call>
std::filesystem::path textOf(const Call& call) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = call(text.data(), static_cast<DWORD>(text.size()));
        if (length < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

std::filesystem::path programFolder() {
    return textOf([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); }).parent_path();
}

/// A service works for the user who installed it.
std::filesystem::path userDataFolder(bool isService) {
    const std::filesystem::path installer = isService ? MachineSettings().UserDataFolder() : std::filesystem::path();
    return installer.empty() ? below(UserFolders::OfTheUser()) : installer;
}

/// Whether the installer put the program there, and not the user.
bool isInstalled(const std::filesystem::path& programFolder) {
    const auto place =
        RegistryKey::Open(HKEY_LOCAL_MACHINE, L"Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"
                                              L"Kalvenor Pro")
            .Text(L"InstallLocation");
    return place && CompareStringOrdinal(place->c_str(), -1, programFolder.c_str(), -1, TRUE) == CSTR_EQUAL;
}

} // namespace

PlatformServices MakePlatformServices() {
    // An empty drive must be an error code, not a box that waits for somebody to put a disk in.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    const bool isService = ReadDisplayFacts().display.isEmpty();
    PlatformServices services;
    services.clock = std::make_unique<RealClock>();
    services.eventPump = std::make_unique<QtEventPump>();
    services.fileSystem = MakeFileSystem();
    services.folderWatches = std::make_unique<DirectoryWatches>();
    services.ownFiles = MakeOwnFiles();
    services.settings = MakeRegistrySettingsStore(L"Software", isService);
    services.locks = MakeWindowsLocks(below(UserFolders::OfThisMachine()));
    services.process = std::make_unique<WindowsProcess>();
    services.power = MakePowerControl();
    services.nameService = std::make_unique<CachedNameService>(MakeNameService());
    services.desktopMail = MakeDesktopMailClient();
    // A toast needs an identity that only a start menu shortcut of the installer could give, a balloon a tray icon,
    // which belongs to the window.
    services.notifier = std::make_unique<NoNotifier>();
    services.passwords = MakePasswordStore();
    services.autostart = MakeAutostart();
    services.places.programFolder = programFolder();
    services.places.dataFolder = services.places.programFolder;
    services.places.userDataFolder = userDataFolder(isService);
    services.places.isInstalled = isInstalled(services.places.programFolder);
    const auto windows = textOf([](wchar_t* text, DWORD size) { return GetSystemWindowsDirectoryW(text, size); });
    const auto system = textOf([](wchar_t* text, DWORD size) { return GetSystemDirectoryW(text, size); });
    services.systemDirectories = {windows, system, windows.root_path()};
    // Not the path of this process: it may be a tool beside the program.
    services.serviceManager = std::make_unique<WindowsServiceManager>(services.places.programFolder / L"Kalvenor.exe",
                                                                      services.places.userDataFolder);
    services.systemClock = MakeSystemClock();
    services.dialUp = MakeDialUp();
    services.fileTypes = MakeFileTypes();
    return services;
}

// Makes the services of Windows that are known by their interfaces only. None of these functions fails.
#pragma once

#include "DesktopEntries.h"
#include "DesktopMailClient.h"
#include "Locks.h"
#include "Machine.h"
#include "NameService.h"
#include "PasswordStore.h"
#include "SettingsStore.h"
#include <memory>
#include <string>
#include <windows.h>

class FileSystem; // the shell's headers have a Folder of their own, which may not meet ours
class OwnFiles;

/// The user's own part of the class registry (HKEY_CURRENT_USER\Software\Classes), which needs no administrator. The
/// class is named after the extension: "kvdfile". Stops at the first key that cannot be written.
[[nodiscard]] std::unique_ptr<FileTypes> MakeFileTypes();

/// A system call.
using SetTime = BOOL(WINAPI*)(const SYSTEMTIME*);

/// SetSystemTime, to the whole second; it needs the right to change the system time.
[[nodiscard]] std::unique_ptr<SystemClock> MakeSystemClock(SetTime setTime = &SetSystemTime);

/// The connections of the remote access service.
[[nodiscard]] std::unique_ptr<DialUp> MakeDialUp();

/// Asks for an orderly end: a program with something unsaved can hold it up. Needs the right to shut down.
[[nodiscard]] std::unique_ptr<PowerControl> MakePowerControl();

/// The servers of GetNetworkParams, which are those with an IPv4 address.
[[nodiscard]] std::unique_ptr<NameService> MakeNameService();

/// Named objects of the whole machine, so that a service and a window keep each other off; `place` is the state folder.
[[nodiscard]] std::unique_ptr<Locks> MakeWindowsLocks(std::filesystem::path place);

/// REG_SZ values of "<path>\<application>\<section>" below HKEY_CURRENT_USER. Names are told apart without their letter
/// case. A save that fails takes back what it had written; if the process dies in the middle of one, each value is
/// either the old or the new one. A service reads what its own account lacks below HKEY_LOCAL_MACHINE.
[[nodiscard]] std::unique_ptr<SettingsStore> MakeRegistrySettingsStore(std::wstring path = L"Software",
                                                                       bool isService = false);

/// Values of a Run key below HKEY_CURRENT_USER. Entries of the whole machine are ignored.
[[nodiscard]] std::unique_ptr<Autostart>
MakeAutostart(std::wstring path = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run");

/// Outlook, through its automation objects.
[[nodiscard]] std::unique_ptr<DesktopMailClient> MakeDesktopMailClient();

/// The Credential Manager, generic credentials of the user.
[[nodiscard]] std::unique_ptr<PasswordStore> MakePasswordStore();

/// Folders by their handles, entries opened relative to them.
[[nodiscard]] std::unique_ptr<FileSystem> MakeFileSystem();

[[nodiscard]] std::unique_ptr<OwnFiles> MakeOwnFiles();

// Makes the services of Windows that are known by their interfaces only. None of these functions fails.
#pragma once

#include "DesktopEntries.h"
#include "FileSystem.h"
#include "Machine.h"
#include "OwnFiles.h"
#include <memory>
#include <windows.h>

/// Folders by their handles, entries opened relative to them.
[[nodiscard]] std::unique_ptr<FileSystem> MakeFileSystem();

[[nodiscard]] std::unique_ptr<OwnFiles> MakeOwnFiles();

/// The user's own part of the class registry (HKEY_CURRENT_USER\Software\Classes), which needs no administrator. The
/// class is named after the extension: "kvdfile". Stops at the first key that cannot be written.
[[nodiscard]] std::unique_ptr<FileTypes> MakeFileTypes();

/// A system call.
using SetTime = BOOL(WINAPI*)(const SYSTEMTIME*);

/// SetSystemTime, to the whole second; it needs the right to change the system time.
[[nodiscard]] std::unique_ptr<SystemClock> MakeSystemClock(SetTime setTime = &SetSystemTime);

/// The connections of the remote access service.
[[nodiscard]] std::unique_ptr<DialUp> MakeDialUp();

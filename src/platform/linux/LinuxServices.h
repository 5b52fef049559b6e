// Makes the services of Linux that are known by their interfaces only. None of these functions fails.
#pragma once

#include "Clock.h"
#include "DesktopEntries.h"
#include "FileSystem.h"
#include "Locks.h"
#include "Machine.h"
#include "NameService.h"
#include "Notifier.h"
#include "PasswordStore.h"
#include "SettingsStore.h"
#include <ctime>
#include <memory>
#include <string>
#include <vector>

[[nodiscard]] std::unique_ptr<FileSystem> MakeLinuxFileSystem();

/// flock() on files in the private folder "<stateHome>/Kalvenor", which is the same for every session and service of
/// the user. With an empty `stateHome` no lock can be made.
[[nodiscard]] std::unique_ptr<Locks> MakeLinuxLocks(std::filesystem::path stateHome);

/// One INI file for each application, "<configHome>/<application>/<application>.ini", in UTF-8 and meant to be edited
/// by hand too. Every call reads the file afresh; the first write creates it. With an empty `configHome` nothing is
/// stored.
[[nodiscard]] std::unique_ptr<SettingsStore> MakeIniSettingsStore(std::filesystem::path configHome);

/// Desktop files in "<configHome>/autostart", see the Desktop Application Autostart specification (0.5). Entries of the
/// whole machine are ignored.
[[nodiscard]] std::unique_ptr<Autostart> MakeAutostart(std::filesystem::path configHome);

/// The desktop entry that MakeFileTypes writes, without ".desktop". That of a package has another name, or the user's
/// would hide it.
inline constexpr const char* OwnDesktopEntry = "kalvenor-activities";

/// A MIME package and a desktop entry below `dataHome`, and the default application in "<configHome>/mimeapps.list".
/// Runs update-mime-database and update-desktop-database where they exist, for three seconds each at most. Writes
/// nothing when one of the system's data folders knows the type already.
[[nodiscard]] std::unique_ptr<FileTypes> MakeFileTypes(std::filesystem::path dataHome, std::filesystem::path configHome,
                                                       std::vector<std::filesystem::path> systemData);

/// The desktop's notification service (org.freedesktop.Notifications on the session bus), which is started when it does
/// not run; never asked for an answer that anything waits for. Without a session bus nothing is shown.
[[nodiscard]] std::unique_ptr<Notifier> MakeDesktopNotifier(QString desktopEntry);

/// The Secret Service or KWallet, through qtkeychain, which takes libsecret where it is installed. Without a session
/// bus there is no store.
[[nodiscard]] std::unique_ptr<PasswordStore> MakePasswordStore();

/// logind (org.freedesktop.login1 on the system bus), which ends the sessions in good order. It refuses when there is
/// no bus, no logind, no permission, or no answer within ten seconds.
[[nodiscard]] std::unique_ptr<PowerControl> MakePowerControl();

/// Its elapsed time is CLOCK_BOOTTIME; CLOCK_MONOTONIC stands still while the machine sleeps.
[[nodiscard]] std::unique_ptr<Clock> MakeLinuxClock();

/// A system call: 0, or -1 with errno.
using SetTime = int (*)(clockid_t, const timespec*);

/// clock_settime(2) where this process may; otherwise timedated (org.freedesktop.timedate1 on the system bus), which
/// may ask the user for an administrator's password and gets two minutes for that.
[[nodiscard]] std::unique_ptr<SystemClock> MakeSystemClock(SetTime settime = &clock_settime);

/// Point-to-point lines (ppp) and mobile broadband modems (wwan) among the interfaces of getifaddrs(3).
[[nodiscard]] std::unique_ptr<DialUp> MakeDialUp();

struct InterfaceFacts {
    std::string name;
    unsigned flags = 0;      ///< IFF_UP and the others of netdevice(7)
    std::string deviceType;  ///< DEVTYPE of its uevent file, "ppp" or "wwan"; "" when there is none
    bool hasAddress = false; ///< an internet address that is valid beyond the link
};

/// True when exactly one of them is a dial-up line that is up and has an address.
[[nodiscard]] bool IsOneDialUp(const std::vector<InterfaceFacts>& interfaces);

/// The resolver of the C library: the nameserver, domain and search lines of resolv.conf(5), and $LOCALDOMAIN. Without
/// a nameserver line the server is this machine.
[[nodiscard]] std::unique_ptr<NameService> MakeNameService();

// The seams of Windows on places of a test's own: a key of the registry named after `place`, a folder. The locks are
// the machine's.
#pragma once

#include "WindowsProcess.h"
#include "WindowsServices.h"

class OwnSeams {
  public:
    explicit OwnSeams(const std::filesystem::path& place)
        : m_key(L"Software\\Kalvenor tests " + place.filename().wstring()) {}
    ~OwnSeams() { RegDeleteTreeW(HKEY_CURRENT_USER, m_key.c_str()); }
    OwnSeams(const OwnSeams&) = delete;
    OwnSeams& operator=(const OwnSeams&) = delete;

  private:
    std::wstring m_key;

  public:
    std::unique_ptr<SettingsStore> settings = MakeRegistrySettingsStore(m_key);
    std::unique_ptr<Locks> locks = MakeWindowsLocks({});
    std::unique_ptr<Autostart> autostart = MakeAutostart(m_key + L"\\Run");
    WindowsProcess process;
};

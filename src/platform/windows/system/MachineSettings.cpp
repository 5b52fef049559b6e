#include "MachineSettings.h"

#include "RegistryKey.h"
#include "SettingsStore.h"

namespace {

const std::wstring folderValue = L"UserDataFolder";

std::wstring own(const std::wstring& root) {
    return root + L'\\' + SettingsStore::OwnApplication.toStdWString();
}

std::wstring options(const std::wstring& root) {
    return own(root) + L'\\' + SettingsStore::OptionsSection.toStdWString();
}

std::wstring service(const std::wstring& root) {
    return own(root) + L"\\Service";
}

} // namespace

std::error_code MachineSettings::Store(const std::filesystem::path& userDataFolder) const {
    if (const std::error_code error = Remove()) // an option that the user has no longer must not stay
        return error;
    RegistryKey key = RegistryKey::Make(HKEY_LOCAL_MACHINE, service(m_root));
    if (const std::error_code error = key.SetText(folderValue, userDataFolder.wstring()))
        return error;
    return RegistryKey::Make(HKEY_LOCAL_MACHINE, options(m_root))
        .CopyFrom(RegistryKey::Open(HKEY_CURRENT_USER, options(m_root)));
}

std::error_code MachineSettings::Remove() const {
    const std::error_code error = RegistryKey::RemoveTree(HKEY_LOCAL_MACHINE, options(m_root));
    return error ? error : RegistryKey::RemoveTree(HKEY_LOCAL_MACHINE, service(m_root));
}

std::filesystem::path MachineSettings::UserDataFolder() const {
    return RegistryKey::Open(HKEY_LOCAL_MACHINE, service(m_root)).Text(folderValue).value_or(std::wstring());
}

#include "MachineSettings.h"

#include "RegistryKey.h"
#include "SettingsStore.h"
#include <array>

namespace {

const std::wstring folderValue = L"UserDataFolder";

std::wstring own(const std::wstring& root) {
    return root + L'\\' + SettingsStore::OwnApplication.toStdWString();
}

/// The sections of the general options.
std::array<std::wstring, 2> options(const std::wstring& root) {
    const auto section = [&root](const QString& name) { return own(root) + L'\\' + name.toStdWString(); };
    return {section(SettingsStore::OptionsSection), section(SettingsStore::SummarySection)};
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
    for (const std::wstring& section : options(m_root))
        if (const std::error_code error =
                RegistryKey::Make(HKEY_LOCAL_MACHINE, section).CopyFrom(RegistryKey::Open(HKEY_CURRENT_USER, section)))
            return error;
    return {};
}

std::error_code MachineSettings::Remove() const {
    for (const std::wstring& section : options(m_root))
        if (const std::error_code error = RegistryKey::RemoveTree(HKEY_LOCAL_MACHINE, section))
            return error;
    return RegistryKey::RemoveTree(HKEY_LOCAL_MACHINE, service(m_root));
}

std::filesystem::path MachineSettings::UserDataFolder() const {
    return RegistryKey::Open(HKEY_LOCAL_MACHINE, service(m_root)).Text(folderValue).value_or(std::wstring());
}

// What a service needs to know of the user who installed it: its own account has settings of its own, which are empty.
// Kept in the registry below HKEY_LOCAL_MACHINE, which an administrator may write and everybody may read.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

class MachineSettings final {
  public:
    /// `root`: where the settings of programs are, below both HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE.
    explicit MachineSettings(std::wstring root = L"Software") : m_root(std::move(root)) {}

    /// Takes this user's options, with the acceptance of the notice, and the folder of the user's data.
    [[nodiscard]] std::error_code Store(const std::filesystem::path& userDataFolder) const;
    /// Removes what Store made; no error when there is nothing.
    [[nodiscard]] std::error_code Remove() const;

    /// Of the user who installed the service; empty when nobody did.
    [[nodiscard]] std::filesystem::path UserDataFolder() const;

  private:
    std::wstring m_root;
};

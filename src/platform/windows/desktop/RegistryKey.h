// One open key of the registry, closed with its object.
#pragma once

#include <string>
#include <system_error>
#include <windows.h>

class RegistryKey final {
  public:
    /// Opens the key for writing, made with all keys above it where it is missing.
    RegistryKey(HKEY root, const std::wstring& path);
    ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    /// Why it could not be opened; every later call fails for the same reason.
    [[nodiscard]] std::error_code Error() const { return m_error; }

    /// Writes the key's default value (REG_SZ) and waits until it is stored.
    [[nodiscard]] std::error_code SetDefault(const std::wstring& text);

  private:
    HKEY m_key = nullptr;
    std::error_code m_error;
};

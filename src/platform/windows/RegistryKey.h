// One open key of the registry. A failure is an error code; after a failed opening every later call fails for that
// reason.
#pragma once

#include <optional>
#include <string>
#include <system_error>
#include <windows.h>

class RegistryKey final {
  public:
    /// Opens the key for reading and writing, made with all keys above it where it is missing.
    [[nodiscard]] static RegistryKey Make(HKEY root, const std::wstring& path);
    /// Opens an existing key for reading, or for changing it too.
    [[nodiscard]] static RegistryKey Open(HKEY root, const std::wstring& path, REGSAM access = KEY_READ);
    ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    /// Why it could not be opened.
    [[nodiscard]] std::error_code Error() const { return m_error; }

    /// The text of a value (REG_SZ), of the key's default value for ""; nullopt when there is none.
    [[nodiscard]] std::optional<std::wstring> Text(const std::wstring& value) const;

    /// True when there is a value of this name, of whatever type.
    [[nodiscard]] bool Has(const std::wstring& value) const;

    [[nodiscard]] std::error_code SetText(const std::wstring& value, const std::wstring& text);

    /// With names of environment variables in it (REG_EXPAND_SZ).
    [[nodiscard]] std::error_code SetExpandableText(const std::wstring& value, const std::wstring& text);

    /// No error when there is none.
    [[nodiscard]] std::error_code Remove(const std::wstring& value);

    /// Takes all values and keys of another one; none when that could not be opened.
    [[nodiscard]] std::error_code CopyFrom(const RegistryKey& other);

    /// Removes a key with all below it; no error when there is none.
    [[nodiscard]] static std::error_code RemoveTree(HKEY root, const std::wstring& path);

    /// Waits until all is stored.
    [[nodiscard]] std::error_code Flush();

  private:
    [[nodiscard]] std::error_code set(const std::wstring& value, const std::wstring& text, DWORD type);
    RegistryKey(HKEY root, const std::wstring& path, bool make, REGSAM access);

    HKEY m_key = nullptr;
    std::error_code m_error;
};

#include "RegistryKey.h"

namespace {

std::error_code asError(LSTATUS status) {
    return {static_cast<int>(status), std::system_category()};
}

} // namespace

RegistryKey::RegistryKey(HKEY root, const std::wstring& path)
    : m_error(asError(RegCreateKeyExW(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr,
                                      &m_key, nullptr))) {}

RegistryKey::~RegistryKey() {
    if (m_key != nullptr)
        RegCloseKey(m_key);
}

std::error_code RegistryKey::SetDefault(const std::wstring& text) {
    if (m_error)
        return m_error;
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    const LSTATUS status =
        RegSetValueExW(m_key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes);
    return asError(status == ERROR_SUCCESS ? RegFlushKey(m_key) : status);
}

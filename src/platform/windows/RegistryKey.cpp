#include "RegistryKey.h"

namespace {

std::error_code asError(LSTATUS status) {
    return {static_cast<int>(status), std::system_category()};
}

} // namespace

RegistryKey RegistryKey::Make(HKEY root, const std::wstring& path) {
    return {root, path, true, KEY_READ | KEY_WRITE};
}

RegistryKey RegistryKey::Open(HKEY root, const std::wstring& path, REGSAM access) {
    return {root, path, false, access};
}

RegistryKey::RegistryKey(HKEY root, const std::wstring& path, bool make, REGSAM access) {
    const LSTATUS status = make ? RegCreateKeyExW(root, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                                                  nullptr, &m_key, nullptr)
                                : RegOpenKeyExW(root, path.c_str(), 0, access, &m_key);
    m_error = asError(status);
}

RegistryKey::~RegistryKey() {
    if (m_key != nullptr)
        RegCloseKey(m_key);
}

std::optional<std::wstring> RegistryKey::Text(const std::wstring& value) const {
    if (m_error)
        return std::nullopt;
    std::wstring text;
    LSTATUS status = ERROR_MORE_DATA;
    // Another process may lengthen the value between the two calls.
    for (DWORD bytes = 0; status == ERROR_MORE_DATA;) {
        text.resize(bytes / sizeof(wchar_t));
        status = RegGetValueW(m_key, nullptr, value.c_str(), RRF_RT_REG_SZ, nullptr,
                              text.empty() ? nullptr : text.data(), &bytes);
        if (status == ERROR_SUCCESS && text.empty() && bytes > 0)
            status = ERROR_MORE_DATA; // the first call asks for the size only
        else if (status == ERROR_SUCCESS)
            text.resize(bytes / sizeof(wchar_t));
    }
    if (status != ERROR_SUCCESS)
        return std::nullopt;
    if (const auto end = text.find(L'\0'); end != std::wstring::npos)
        text.resize(end);
    return text;
}

bool RegistryKey::Has(const std::wstring& value) const {
    return !m_error && RegQueryValueExW(m_key, value.c_str(), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

std::error_code RegistryKey::SetText(const std::wstring& value, const std::wstring& text) {
    return set(value, text, REG_SZ);
}

std::error_code RegistryKey::SetExpandableText(const std::wstring& value, const std::wstring& text) {
    return set(value, text, REG_EXPAND_SZ);
}

std::error_code RegistryKey::set(const std::wstring& value, const std::wstring& text, DWORD type) {
    if (m_error)
        return m_error;
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return asError(RegSetValueExW(m_key, value.c_str(), 0, type, reinterpret_cast<const BYTE*>(text.c_str()), bytes));
}

std::error_code RegistryKey::Remove(const std::wstring& value) {
    if (m_error)
        return m_error;
    const LSTATUS status = RegDeleteValueW(m_key, value.c_str());
    return asError(status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status);
}

std::error_code RegistryKey::CopyFrom(const RegistryKey& other) {
    if (m_error || other.m_error)
        return m_error;
    return asError(RegCopyTreeW(other.m_key, nullptr, m_key));
}

std::error_code RegistryKey::RemoveTree(HKEY root, const std::wstring& path) {
    const LSTATUS status = RegDeleteTreeW(root, path.c_str());
    return asError(status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status);
}

std::error_code RegistryKey::Flush() {
    return m_error ? m_error : asError(RegFlushKey(m_key));
}

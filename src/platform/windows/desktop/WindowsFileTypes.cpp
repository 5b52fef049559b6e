#include "WindowsServices.h"

#include <shlobj.h>
#include <string>
#include <utility>
#include <vector>

namespace {

std::error_code asError(LSTATUS status) {
    return {static_cast<int>(status), std::system_category()};
}

/// One open key of the registry.
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

const std::wstring classes = L"Software\\Classes\\";

std::error_code createKeys(const std::wstring& classKey) {
    for (const wchar_t* below : {L"", L"\\DefaultIcon", L"\\Quickview", L"\\Shell", L"\\Shell\\open", L"\\Shell\\print",
                                 L"\\Shell\\open\\Command", L"\\Shell\\print\\Command"}) {
        if (const std::error_code error = RegistryKey(HKEY_CURRENT_USER, classKey + below).Error())
            return error;
    }
    return {};
}

class WindowsFileTypes final : public FileTypes {
  public:
    std::error_code Register(const FileType& type) override;
};

std::error_code WindowsFileTypes::Register(const FileType& type) {
    const std::wstring extension = type.extension.toStdWString();
    const std::wstring className = extension.substr(1) + L"file";
    const std::wstring classKey = classes + className;
    if (const std::error_code error = createKeys(classKey))
        return error;

    const std::wstring program = type.program.wstring();
    std::vector<std::pair<std::wstring, std::wstring>> values{{classes + extension, className},
                                                              {classKey, type.description.toStdWString()}};
    if (!type.icon.empty())
        values.emplace_back(classKey + L"\\DefaultIcon", type.icon.wstring() + L",0");
    values.emplace_back(classKey + L"\\Shell\\open\\Command", program + L" %1");
    values.emplace_back(classKey + L"\\Shell\\print\\Command", program + L" /p %1");
    for (const auto& [key, text] : values) {
        if (const std::error_code error = RegistryKey(HKEY_CURRENT_USER, key).SetDefault(text))
            return error;
    }
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
    return {};
}

} // namespace

std::unique_ptr<FileTypes> MakeFileTypes() {
    return std::make_unique<WindowsFileTypes>();
}

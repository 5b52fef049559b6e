#include "ProgramFile.h"
#include "RegistryKey.h"
#include "WindowsServices.h"

#include <shlobj.h>
#include <string>
#include <utility>
#include <vector>

namespace {

const std::wstring classes = L"Software\\Classes\\";

std::error_code createKeys(const std::wstring& classKey) {
    for (const wchar_t* below : {L"", L"\\DefaultIcon", L"\\Quickview", L"\\Shell", L"\\Shell\\open", L"\\Shell\\print",
                                 L"\\Shell\\open\\Command", L"\\Shell\\print\\Command"}) {
        if (const std::error_code error = RegistryKey::Make(HKEY_CURRENT_USER, classKey + below).Error())
            return error;
    }
    return {};
}

std::error_code setDefault(const std::wstring& path, const std::wstring& text) {
    RegistryKey key = RegistryKey::Make(HKEY_CURRENT_USER, path);
    const std::error_code error = key.SetText(L"", text);
    return error ? error : key.Flush();
}

/// The path without blanks where the disk keeps short names: the command is not quoted, and "C:\A b\c.exe" would start
/// "C:\A.exe" if somebody put one there.
std::wstring shortPath(const std::wstring& program) {
    if (program.find(L' ') == std::wstring::npos)
        return program;
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetShortPathNameW(program.c_str(), text.data(), static_cast<DWORD>(text.size()));
        if (length == 0)
            return program;
        const bool fits = length < text.size();
        text.resize(length);
        if (fits)
            return text;
    }
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

    const std::wstring program = shortPath(ProgramFile(type.program).wstring());
    std::vector<std::pair<std::wstring, std::wstring>> values{{classes + extension, className},
                                                              {classKey, type.description.toStdWString()}};
    if (!type.icon.empty())
        values.emplace_back(classKey + L"\\DefaultIcon", type.icon.wstring() + L",0");
    values.emplace_back(classKey + L"\\Shell\\open\\Command", program + L" %1");
    values.emplace_back(classKey + L"\\Shell\\print\\Command", program + L" /p %1");
    for (const auto& [key, text] : values) {
        if (const std::error_code error = setDefault(key, text))
            return error;
    }
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
    return {};
}

} // namespace

std::unique_ptr<FileTypes> MakeFileTypes() {
    return std::make_unique<WindowsFileTypes>();
}

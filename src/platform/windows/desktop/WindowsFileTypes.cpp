#include "WindowsFileTypes.h"

#include "RegistryKey.h"
#include <shlobj.h>
#include <utility>
#include <vector>

namespace {

const std::wstring classes = L"Software\\Classes\\";

std::error_code createKeys(const std::wstring& classKey) {
    for (const wchar_t* below : {L"", L"\\DefaultIcon", L"\\Quickview", L"\\Shell", L"\\Shell\\open", L"\\Shell\\print",
                                 L"\\Shell\\open\\Command", L"\\Shell\\print\\Command"}) {
        if (const std::error_code error = RegistryKey(HKEY_CURRENT_USER, classKey + below).Error())
            return error;
    }
    return {};
}

} // namespace

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

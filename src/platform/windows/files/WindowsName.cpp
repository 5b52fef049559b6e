#include "WindowsName.h"
#include "SystemCall.h"

#include <algorithm>
#include <array>
#include <cwctype>
#include <string_view>

namespace {

bool isBent(std::wstring_view name) {
    return !name.empty() && name != L"." && name != L".." && (name.back() == L'.' || name.back() == L' ');
}

/// With any extension, and blanks before it.
bool isDevice(std::wstring_view name) {
    std::wstring stem(name.substr(0, name.find(L'.')));
    stem.erase(stem.find_last_not_of(L' ') + 1);
    std::transform(stem.begin(), stem.end(), stem.begin(), [](wchar_t letter) { return std::towupper(letter); });
    constexpr std::array<std::wstring_view, 6> devices{L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
    if (std::find(devices.begin(), devices.end(), stem) != devices.end())
        return true;
    constexpr std::wstring_view digits = L"0123456789\u00b9\u00b2\u00b3";
    constexpr std::size_t lengthWithDigit = 4;
    return stem.size() == lengthWithDigit && (stem.starts_with(L"COM") || stem.starts_with(L"LPT")) &&
           digits.find(stem.back()) != std::wstring_view::npos;
}

bool isVerbatim(const std::wstring& path) {
    return path.starts_with(L"\\\\?\\");
}

} // namespace

bool WindowsName::IsPlain(const std::filesystem::path& name) {
    const std::wstring& text = name.native();
    const bool hasForbidden = std::any_of(text.begin(), text.end(), [](wchar_t letter) {
        return letter < L' ' || std::wstring_view(L"\\/:*?\"<>|").find(letter) != std::wstring_view::npos;
    });
    return !text.empty() && text != L"." && text != L".." && !hasForbidden && !isBent(text) && !isDevice(text);
}

std::filesystem::path WindowsName::Absolute(const std::filesystem::path& path, std::error_code& error) {
    const std::wstring& text = path.native();
    error.clear();
    if (text.empty() || text.find(L'\0') != std::wstring::npos) {
        error = ErrorOf(ENOENT);
        return {};
    }
    const bool isRefused = std::any_of(path.begin(), path.end(), [&path](const std::filesystem::path& part) {
        const bool isRoot = part == path.root_name() || part == path.root_directory();
        return !isRoot &&
               (isBent(part.native()) || isDevice(part.native()) || part.native().find(L':') != std::wstring::npos);
    });
    if (isRefused || text.starts_with(L"\\\\.\\")) {
        error = ErrorOf(EINVAL);
        return {};
    }
    if (isVerbatim(text))
        return path;
    const DWORD needed = GetFullPathNameW(text.c_str(), 0, nullptr, nullptr);
    std::wstring absolute(needed, L'\0');
    const DWORD length = needed == 0 ? 0 : GetFullPathNameW(text.c_str(), needed, absolute.data(), nullptr);
    if (length == 0 || length >= needed) {
        error = LastFileError();
        return {};
    }
    absolute.resize(length);
    return absolute;
}

std::wstring WindowsName::Extended(const std::filesystem::path& absolute) {
    const std::wstring& text = absolute.native();
    if (isVerbatim(text))
        return text;
    return text.starts_with(L"\\\\") ? L"\\\\?\\UNC" + text.substr(1) : L"\\\\?\\" + text;
}

std::filesystem::path WindowsName::Plain(const std::wstring& extended) {
    constexpr std::wstring_view share = L"\\\\?\\UNC\\";
    constexpr std::wstring_view verbatim = L"\\\\?\\";
    if (extended.starts_with(share))
        return L"\\\\" + extended.substr(share.size());
    return isVerbatim(extended) ? extended.substr(verbatim.size()) : extended;
}

std::string WindowsName::Narrow(const std::wstring& name) {
    constexpr wchar_t lastOfAscii = 0x7e;
    std::string narrow;
    for (const wchar_t letter : name) {
        if (letter > lastOfAscii)
            return {};
        narrow.push_back(static_cast<char>(letter));
    }
    return narrow;
}

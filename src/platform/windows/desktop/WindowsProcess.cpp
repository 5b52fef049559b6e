#include "WindowsProcess.h"

#include "Com.h"
#include "WebAddress.h"
#include "modNativePath.h"
#include <array>
#include <cstdio>
#include <string>
#include <windows.h>

#include <shellapi.h>

namespace {

/// The folder that an opened program starts in: one that is always there and that nobody has to unmount.
std::wstring startFolder() {
    std::array<wchar_t, MAX_PATH> windows{};
    const UINT length = GetWindowsDirectoryW(windows.data(), MAX_PATH);
    return std::wstring(windows.data(), length) + L"\\System32\\com";
}

bool shellExecute(const wchar_t* verb, const std::wstring& target) {
    const Com com; // some programs are started through it
    const std::wstring folder = startFolder();
    SHELLEXECUTEINFOW request{};
    request.cbSize = sizeof request;
    request.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    request.lpVerb = verb;
    request.lpFile = target.c_str();
    request.lpDirectory = folder.c_str();
    request.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&request) != FALSE;
}

/// Absolute, so that a bare name is not searched for along the path and among the registered programs.
bool openFile(const QString& path) {
    const std::filesystem::path file = modNativePath::Absolute(path);
    return !file.empty() && GetFileAttributesW(file.c_str()) != INVALID_FILE_ATTRIBUTES &&
           shellExecute(L"open", file.wstring());
}

} // namespace

bool WindowsProcess::Open(const QString& path) {
    return openFile(path);
}

void WindowsProcess::ShowDocument(const QString& path, const std::function<void()>& failed) {
    if (!openFile(path))
        QMetaObject::invokeMethod(&m_failures, failed, Qt::QueuedConnection);
}

bool WindowsProcess::OpenFolder(const QString& path) {
    const std::filesystem::path folder = modNativePath::Absolute(path);
    const DWORD attributes = folder.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(folder.c_str());
    const bool isFolder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    // This verb is for folders only, should a file have come to that place meanwhile.
    return isFolder && shellExecute(L"explore", folder.wstring());
}

bool WindowsProcess::OpenWebPage(const QString& address) {
    const std::optional<QString> page = WebAddress(address);
    return page && shellExecute(L"open", page->toStdWString());
}

void WindowsProcess::EndNow(int exitCode) {
    std::fflush(nullptr);
    // Unlike ExitProcess it asks no library, which might wait for a lock.
    TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
}

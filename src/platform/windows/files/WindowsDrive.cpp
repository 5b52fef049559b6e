#include "WindowsDrive.h"
#include "WindowsFolder.h"
#include "WindowsName.h"
#include "modDrive.h"

#include <array>
#include <cstdio>

namespace {

/// Where the volume is mounted; for a share, its name.
std::wstring rootOf(const std::filesystem::path& absolute) {
    std::wstring root(absolute.native().size() + MAX_PATH, L'\0');
    if (!GetVolumePathNameW(absolute.c_str(), root.data(), static_cast<DWORD>(root.size())))
        return {};
    root.resize(root.find(L'\0'));
    return root;
}

/// The name of the volume, which it keeps on this machine whatever its letter is, else the number that it got when it
/// was formatted.
std::string identityOf(HANDLE folder, const std::wstring& root) {
    std::array<wchar_t, MAX_PATH> volume{};
    if (GetVolumeNameForVolumeMountPointW(root.c_str(), volume.data(), static_cast<DWORD>(volume.size())))
        return WindowsName::Narrow(volume.data());
    DWORD serial = 0;
    if (!GetVolumeInformationByHandleW(folder, nullptr, 0, &serial, nullptr, nullptr, nullptr, 0))
        return {};
    std::array<char, 32> text{};
    const int length = std::snprintf(text.data(), text.size(), "serial %08lx", static_cast<unsigned long>(serial));
    return {text.data(), static_cast<std::size_t>(length)};
}

} // namespace

DriveFacts DriveOf(HANDLE folder, const std::filesystem::path& absolute) {
    const std::wstring root = rootOf(absolute);
    return {.identity = identityOf(folder, root),
            .mountPoint = root,
            .isNetwork = GetDriveTypeW(root.c_str()) == DRIVE_REMOTE};
}

std::optional<modDrive::Named> modDrive::Of(const std::filesystem::path& folder) {
    std::error_code error;
    const std::shared_ptr<WindowsFolder> opened = WindowsFolder::Open(folder, error);
    if (!opened)
        return std::nullopt;
    Named drive{.facts = opened->Drive(), .name = {}};
    std::array<wchar_t, MAX_PATH + 1> label{};
    if (GetVolumeInformationW(drive.facts.mountPoint.c_str(), label.data(), static_cast<DWORD>(label.size()), nullptr,
                              nullptr, nullptr, nullptr, 0))
        drive.name = QString::fromWCharArray(label.data());
    return drive;
}

#include "Replacing.h"
#include "NtFile.h"

namespace {

/// The system calls both cases "access denied". A file that nobody has open can be opened for this process alone.
std::error_code refusal(HANDLE folder, const std::filesystem::path& name) {
    std::error_code error;
    const WinHandle old = NtFile::Open(
        folder, name, {.access = DELETE | FILE_READ_ATTRIBUTES, .share = 0, .kind = NtFile::Kind::File}, error);
    return error == std::errc::device_or_resource_busy ? error : std::error_code();
}

bool isReadOnly(HANDLE folder, const std::filesystem::path& name) {
    std::error_code error;
    const WinHandle old = NtFile::Open(folder, name, {}, error);
    EntryStatus status{};
    return !error && !NtFile::ReadStatus(old.Get(), status) && (status.attributes & FILE_ATTRIBUTE_READONLY) != 0;
}

} // namespace

std::error_code Replacing::Rename(HANDLE entry, HANDLE folder, const std::filesystem::path& name) {
    if (isReadOnly(folder, name))
        return FileError(ERROR_ACCESS_DENIED);
    const std::error_code error = NtFile::Rename(entry, folder, name, true);
    if (error != std::errc::permission_denied)
        return error;
    const std::error_code reason = refusal(folder, name);
    return reason ? reason : error;
}

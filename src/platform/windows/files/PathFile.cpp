#include "PathFile.h"
#include "EntryFacts.h"
#include "NtFile.h"
#include "WindowsName.h"
#include "modRegularFile.h"

#include <algorithm>
#include <fcntl.h>
#include <io.h>

WinHandle PathFile::Open(const std::filesystem::path& path, const Order& order, std::error_code& error) {
    const std::filesystem::path absolute = WindowsName::Absolute(path, error);
    if (error)
        return {};
    WinHandle file(CreateFileW(WindowsName::Extended(absolute).c_str(), order.access | FILE_READ_ATTRIBUTES,
                               order.share, nullptr, order.disposition, FILE_FLAG_BACKUP_SEMANTICS | order.flags,
                               nullptr));
    EntryStatus status{};
    error = file.IsOpen() ? NtFile::ReadStatus(file.Get(), status) : LastFileError();
    if (error == std::errc::permission_denied) { // the answer too when a folder is opened for writing
        const DWORD attributes = GetFileAttributesW(WindowsName::Extended(absolute).c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            error = ErrorOf(EISDIR);
    }
    if (error)
        return {};
    if ((status.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        error = ErrorOf(EISDIR);
    else if (GetFileType(file.Get()) != FILE_TYPE_DISK)
        error = ErrorOf(EINVAL);
    return error ? WinHandle() : std::move(file);
}

std::error_code PathFile::Write(HANDLE file, const char* bytes, std::size_t count) {
    constexpr std::size_t most = std::size_t{1} << 30;
    while (count > 0) {
        DWORD written = 0;
        if (!WriteFile(file, bytes, static_cast<DWORD>(std::min(count, most)), &written, nullptr))
            return LastFileError();
        if (written == 0)
            return FileError(ERROR_DISK_FULL);
        bytes += written;
        count -= written;
    }
    return {};
}

std::filesystem::path PathFile::FinalPath(HANDLE entry) {
    std::wstring path(MAX_PATH + 1, L'\0');
    DWORD length = GetFinalPathNameByHandleW(entry, path.data(), static_cast<DWORD>(path.size()), VOLUME_NAME_DOS);
    if (length >= path.size()) {
        path.resize(std::size_t{length} + 1);
        length = GetFinalPathNameByHandleW(entry, path.data(), static_cast<DWORD>(path.size()), VOLUME_NAME_DOS);
    }
    path.resize(length < path.size() ? length : 0);
    return WindowsName::Plain(path);
}

std::error_code modRegularFile::Open(const std::filesystem::path& path, QFile& file) {
    std::error_code error;
    const WinHandle found = PathFile::Open(path, {.access = GENERIC_READ}, error);
    if (error)
        return error;
    HANDLE own = nullptr; // the C library's descriptor closes it
    if (!DuplicateHandle(GetCurrentProcess(), found.Get(), GetCurrentProcess(), &own, 0, FALSE, DUPLICATE_SAME_ACCESS))
        return LastFileError();
    const int descriptor = ::_open_osfhandle(reinterpret_cast<intptr_t>(own), _O_RDONLY | _O_BINARY);
    if (descriptor < 0) {
        CloseHandle(own);
        return ErrorOf(EMFILE);
    }
    if (file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return {};
    ::_close(descriptor);
    return ErrorOf(EIO);
}

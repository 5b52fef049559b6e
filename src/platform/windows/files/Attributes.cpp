#include "Attributes.h"
#include "NtFile.h"
#include "WindowsFolder.h"

std::error_code Attributes::CopyToFile(const EntryStatus& status, HANDLE copy) {
    constexpr DWORD kept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                           FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    FILE_BASIC_INFO basic{}; // a time of 0 stays as it is
    basic.LastWriteTime.QuadPart = status.modified;
    basic.FileAttributes = (status.attributes & kept) != 0 ? status.attributes & kept : FILE_ATTRIBUTE_NORMAL;
    return SetFileInformationByHandle(copy, FileBasicInfo, &basic, sizeof basic) ? std::error_code() : LastFileError();
}

std::error_code Attributes::CopyToFolder(const Folder& /*source*/, const EntryStatus& status, const Folder& copy) {
    std::error_code error;
    const WinHandle folder =
        NtFile::Open(HandleOf(copy), {}, {.access = FILE_WRITE_ATTRIBUTES, .kind = NtFile::Kind::Folder}, error);
    return error ? error : CopyToFile(status, folder.Get());
}

#include "NtFile.h"

#include <cstddef>
#include <cstring>
#include <vector>
#include <winternl.h>

namespace {

constexpr ULONG disposition(bool isNew) {
    return isNew ? FILE_CREATE : FILE_OPEN;
}

// Not in all versions of the headers.
constexpr NTSTATUS fileIsADirectory = static_cast<NTSTATUS>(0xC00000BAU);
constexpr NTSTATUS deletePending = static_cast<NTSTATUS>(0xC0000056U);
constexpr auto dispositionEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);
constexpr DWORD deleteFlag = 1;
constexpr DWORD posixSemantics = 2;
constexpr DWORD ignoreReadOnly = 16;

std::error_code errorOf(NTSTATUS status) {
    if (status >= 0)
        return {};
    if (status == fileIsADirectory)
        return FileError(DirectoryNotSupported);
    return FileError(status == deletePending ? ERROR_DELETE_PENDING : RtlNtStatusToDosError(status));
}

/// The identifier of 128 bits, where there is one: on most file systems its upper half is 0.
FileId idOf(HANDLE entry, const BY_HANDLE_FILE_INFORMATION& facts) {
    constexpr int halfBits = 32;
    FILE_ID_INFO info{};
    if (!GetFileInformationByHandleEx(entry, FileIdInfo, &info, sizeof info))
        return {facts.dwVolumeSerialNumber, (std::uint64_t{facts.nFileIndexHigh} << halfBits) | facts.nFileIndexLow};
    std::uint64_t halves[2] = {};
    static_assert(sizeof halves == sizeof info.FileId);
    std::memcpy(halves, &info.FileId, sizeof halves);
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15U;
    return {info.VolumeSerialNumber, halves[0] ^ (halves[1] * spread)};
}

} // namespace

WinHandle NtFile::Open(HANDLE folder, const std::filesystem::path& name, const Order& order, std::error_code& error) {
    std::wstring text = name.native();
    UNICODE_STRING unicode{};
    unicode.Length = static_cast<USHORT>(text.size() * sizeof(wchar_t));
    unicode.MaximumLength = unicode.Length;
    unicode.Buffer = text.data();
    OBJECT_ATTRIBUTES object{};
    InitializeObjectAttributes(&object, &unicode, OBJ_CASE_INSENSITIVE, folder, nullptr);
    ULONG options = FILE_SYNCHRONOUS_IO_NONALERT | FILE_OPEN_FOR_BACKUP_INTENT;
    options |= order.links == Links::OpenItself ? FILE_OPEN_REPARSE_POINT : 0U;
    options |= order.kind == Kind::File ? FILE_NON_DIRECTORY_FILE : 0U;
    options |= order.kind == Kind::Folder ? FILE_DIRECTORY_FILE : 0U;
    IO_STATUS_BLOCK result{};
    HANDLE opened = nullptr;
    error = errorOf(NtCreateFile(&opened, order.access | SYNCHRONIZE, &object, &result, nullptr, order.attributes,
                                 order.share, disposition(order.isNew), options, nullptr, 0));
    return error ? WinHandle() : WinHandle(opened);
}

std::error_code NtFile::ReadStatus(HANDLE entry, EntryStatus& status) {
    constexpr int halfBits = 32;
    BY_HANDLE_FILE_INFORMATION facts{};
    FILE_BASIC_INFO basic{};
    if (!GetFileInformationByHandle(entry, &facts) ||
        !GetFileInformationByHandleEx(entry, FileBasicInfo, &basic, sizeof basic))
        return LastFileError();
    status.id = idOf(entry, facts);
    status.size = (std::uint64_t{facts.nFileSizeHigh} << halfBits) | facts.nFileSizeLow;
    status.modified = basic.LastWriteTime.QuadPart;
    status.changed = basic.ChangeTime.QuadPart;
    status.attributes = basic.FileAttributes;
    status.reparseTag = 0;
    if ((basic.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return {};
    FILE_ATTRIBUTE_TAG_INFO tag{};
    if (!GetFileInformationByHandleEx(entry, FileAttributeTagInfo, &tag, sizeof tag))
        return LastFileError();
    status.reparseTag = tag.ReparseTag;
    return {};
}

std::error_code NtFile::Rename(HANDLE entry, HANDLE folder, const std::filesystem::path& name, bool replaces) {
    const std::wstring& text = name.native();
    const std::size_t bytes = text.size() * sizeof(wchar_t);
    std::vector<std::byte> buffer(sizeof(FILE_RENAME_INFORMATION) + bytes);
    auto* const order = reinterpret_cast<FILE_RENAME_INFORMATION*>(buffer.data());
    order->ReplaceIfExists = replaces ? TRUE : FALSE;
    order->RootDirectory = folder;
    order->FileNameLength = static_cast<ULONG>(bytes);
    std::memcpy(order->FileName, text.data(), bytes);
    IO_STATUS_BLOCK result{};
    return errorOf(
        NtSetInformationFile(entry, &result, order, static_cast<ULONG>(buffer.size()), FileRenameInformation));
}

/// Where the file system knows it, the name is free at once, even while others have the file open.
std::error_code NtFile::Delete(HANDLE entry, bool evenReadOnly) {
    FILE_BASIC_INFO basic{};
    const bool isReadOnly = GetFileInformationByHandleEx(entry, FileBasicInfo, &basic, sizeof basic) &&
                            (basic.FileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isReadOnly && !evenReadOnly)
        return FileError(ERROR_ACCESS_DENIED);
    struct {
        DWORD flags;
    } now{deleteFlag | posixSemantics | (evenReadOnly ? ignoreReadOnly : 0U)};
    if (SetFileInformationByHandle(entry, dispositionEx, &now, sizeof now))
        return {};
    const DWORD number = GetLastError();
    if (number != ERROR_INVALID_PARAMETER && number != ERROR_INVALID_FUNCTION && number != ERROR_NOT_SUPPORTED)
        return FileError(number);
    bool isUnlocked = false;
    if (isReadOnly) {
        FILE_BASIC_INFO writable{};
        writable.FileAttributes = (basic.FileAttributes & ~DWORD{FILE_ATTRIBUTE_READONLY}) | FILE_ATTRIBUTE_NORMAL;
        isUnlocked = SetFileInformationByHandle(entry, FileBasicInfo, &writable, sizeof writable) != 0;
    }
    FILE_DISPOSITION_INFO onClose{TRUE};
    if (SetFileInformationByHandle(entry, FileDispositionInfo, &onClose, sizeof onClose))
        return {};
    const std::error_code error = LastFileError();
    if (isUnlocked) {
        FILE_BASIC_INFO before{};
        before.FileAttributes = basic.FileAttributes;
        SetFileInformationByHandle(entry, FileBasicInfo, &before, sizeof before);
    }
    return error;
}

std::error_code NtFile::Flush(HANDLE file) {
    return FlushFileBuffers(file) ? std::error_code() : LastFileError();
}

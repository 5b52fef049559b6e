#include "WindowsOwnFiles.h"
#include "EntryFacts.h"
#include "NtFile.h"
#include "PathFile.h"
#include "TemporaryFiles.h"
#include "WindowsFolder.h"
#include "WindowsName.h"
#include "WindowsServices.h"

#include <aclapi.h>
#include <algorithm>

namespace {

namespace fs = std::filesystem;

constexpr std::int64_t mostMovedBytes = std::int64_t{4} << 30;
constexpr std::size_t readStep = std::size_t{1} << 20;

std::wstring extended(const fs::path& path) {
    std::error_code error;
    const fs::path absolute = WindowsName::Absolute(path, error);
    return error ? std::wstring() : WindowsName::Extended(absolute);
}

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

std::optional<FileStamp> stampOf(HANDLE file) {
    EntryStatus status{};
    if (NtFile::ReadStatus(file, status))
        return std::nullopt;
    return FileStamp{status.id, status.size, EntryFacts::Nanoseconds(status.modified)};
}

std::error_code readFrom(HANDLE file, std::int64_t limit, QByteArray& bytes) {
    QByteArray read;
    for (DWORD count = 1; count > 0;) {
        const qsizetype before = read.size();
        read.resize(before + static_cast<qsizetype>(readStep));
        const BOOL isRead = ReadFile(file, read.data() + before, static_cast<DWORD>(readStep), &count, nullptr);
        if (!isRead)
            return LastFileError();
        read.resize(before + static_cast<qsizetype>(count));
        if (read.size() > limit)
            return ErrorOf(EFBIG);
    }
    bytes = read;
    return {};
}

/// What a file that will be replaced hands on: its access list and its attributes.
std::error_code copyRights(HANDLE old, HANDLE copy) {
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR memory = nullptr;
    const DWORD reading =
        GetSecurityInfo(old, SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr, &memory);
    if (reading != ERROR_SUCCESS)
        return FileError(reading);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    GetSecurityDescriptorControl(memory, &control, &revision);
    const SECURITY_INFORMATION which =
        DACL_SECURITY_INFORMATION | ((control & SE_DACL_PROTECTED) != 0 ? PROTECTED_DACL_SECURITY_INFORMATION
                                                                        : UNPROTECTED_DACL_SECURITY_INFORMATION);
    const DWORD writing = SetSecurityInfo(copy, SE_FILE_OBJECT, which, nullptr, nullptr, list, nullptr);
    LocalFree(memory);
    return writing == ERROR_SUCCESS ? std::error_code() : FileError(writing);
}

std::error_code showLike(HANDLE old, HANDLE copy) {
    FILE_BASIC_INFO basic{};
    if (old != nullptr) {
        FILE_BASIC_INFO before{};
        if (!GetFileInformationByHandleEx(old, FileBasicInfo, &before, sizeof before))
            return LastFileError();
        basic.FileAttributes = before.FileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    }
    basic.FileAttributes |= FILE_ATTRIBUTE_ARCHIVE;
    return SetFileInformationByHandle(copy, FileBasicInfo, &basic, sizeof basic) ? std::error_code() : LastFileError();
}

/// Writes a complete temporary beside `file`, brings it to disk, and gives it its name: over the file that is open as
/// `old`, else a free one.
std::error_code put(const fs::path& file, const QByteArray& bytes, WinHandle old) {
    std::error_code error;
    const auto folder = WindowsFolder::Open(folderOf(file), error);
    if (!folder)
        return error;
    if (!WindowsName::IsPlain(file.filename()))
        return ErrorOf(EINVAL);
    folder->RemoveLeftovers();
    const TemporaryFiles temporaries;
    TemporaryFile copy;
    const bool replaces = old.IsOpen();
    error = temporaries.Create(folder, copy, replaces ? READ_CONTROL | WRITE_DAC : 0);
    if (!error && replaces)
        error = copyRights(old.Get(), copy.Handle());
    if (!error)
        error = PathFile::Write(copy.Handle(), bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (!error)
        error = showLike(old.Get(), copy.Handle());
    if (!error)
        error = NtFile::Flush(copy.Handle());
    if (error)
        return error;
    old = WinHandle(); // or it would be in its own way
    error = replaces ? temporaries.Replace(copy, file.filename()) : temporaries.PlaceAtFreeName(copy, file.filename());
    return error ? error : NtFile::Flush(copy.Handle()); // and its name
}

std::error_code makeFolders(const fs::path& folder) {
    if (CreateDirectoryW(extended(folder).c_str(), nullptr) || GetLastError() == ERROR_ALREADY_EXISTS)
        return {};
    const std::error_code error = LastFileError();
    if (error != std::errc::no_such_file_or_directory || !folder.has_relative_path() || folder == folderOf(folder))
        return error;
    if (const std::error_code above = makeFolders(folderOf(folder)))
        return above;
    return CreateDirectoryW(extended(folder).c_str(), nullptr) ? std::error_code() : LastFileError();
}

} // namespace

std::optional<FileStamp> WindowsOwnFiles::Stamp(const fs::path& file) const {
    std::error_code error;
    const WinHandle opened = PathFile::Open(file, {}, error);
    return error ? std::nullopt : stampOf(opened.Get());
}

bool WindowsOwnFiles::FolderExists(const fs::path& folder) const {
    const DWORD attributes = GetFileAttributesW(extended(folder).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::error_code WindowsOwnFiles::ReadAll(const fs::path& file, std::int64_t limit, QByteArray& bytes) const {
    bytes.clear();
    std::error_code error;
    const WinHandle opened = PathFile::Open(file, {.access = GENERIC_READ}, error);
    return error ? error : readFrom(opened.Get(), limit, bytes);
}

std::error_code WindowsOwnFiles::ReplaceAll(const fs::path& file, const QByteArray& bytes) {
    std::error_code error;
    WinHandle old = PathFile::Open(file, {.access = GENERIC_WRITE | READ_CONTROL}, error);
    if (error == std::errc::no_such_file_or_directory)
        return put(file, bytes, {});
    if (error)
        return error;
    const fs::path target = PathFile::FinalPath(old.Get());
    return put(target.empty() ? file : target, bytes, std::move(old));
}

std::error_code WindowsOwnFiles::CreateNew(const fs::path& file, const QByteArray& bytes) {
    const std::error_code error = makeFolders(folderOf(file));
    return error ? error : put(file, bytes, {});
}

std::error_code WindowsOwnFiles::Append(const fs::path& file, const QByteArray& bytes, bool create) {
    std::error_code error;
    const WinHandle opened = PathFile::Open(
        file, {.access = GENERIC_WRITE, .disposition = create ? DWORD{OPEN_ALWAYS} : DWORD{OPEN_EXISTING}}, error);
    LARGE_INTEGER before{};
    if (!error && !GetFileSizeEx(opened.Get(), &before))
        error = LastFileError();
    OVERLAPPED atTheEnd{}; // wherever that is when the bytes are written
    atTheEnd.Offset = MAXDWORD;
    atTheEnd.OffsetHigh = MAXDWORD;
    DWORD written = 0;
    const auto count = static_cast<DWORD>(bytes.size());
    if (error || count == 0)
        return error;
    if (!WriteFile(opened.Get(), bytes.constData(), count, &written, &atTheEnd))
        error = LastFileError();
    if (written == count)
        return {};
    // Truncate an incomplete line, unless another process has appended to it.
    LARGE_INTEGER now{};
    if (GetFileSizeEx(opened.Get(), &now) && now.QuadPart == before.QuadPart + LONGLONG{written}) {
        FILE_END_OF_FILE_INFO end{before};
        SetFileInformationByHandle(opened.Get(), FileEndOfFileInfo, &end, sizeof end);
    }
    return error ? error : FileError(ERROR_DISK_FULL);
}

std::error_code WindowsOwnFiles::MoveAway(const fs::path& file, const fs::path& target) {
    if (GetFileAttributesW(extended(target).c_str()) != INVALID_FILE_ATTRIBUTES) // or it may be the file itself
        return FileError(ERROR_FILE_EXISTS);
    // While it is open here nobody writes to it, and who does already is met.
    std::error_code error;
    const DWORD access = GENERIC_READ | DELETE | FILE_WRITE_ATTRIBUTES;
    const WinHandle source = PathFile::Open(
        file, {.access = access, .share = FILE_SHARE_READ | FILE_SHARE_DELETE, .flags = FILE_FLAG_OPEN_REPARSE_POINT},
        error);
    EntryStatus entry{};
    if (!error)
        error = NtFile::ReadStatus(source.Get(), entry);
    if (error)
        return error;
    // Copy a link instead of renaming it: a relative target leads elsewhere from another folder.
    if (entry.reparseTag == 0) {
        if (MoveFileExW(extended(file).c_str(), extended(target).c_str(), MOVEFILE_WRITE_THROUGH))
            return {};
        error = LastFileError();
        if (error != std::errc::cross_device_link)
            return error;
    }
    QByteArray bytes;
    error =
        entry.reparseTag == 0 ? readFrom(source.Get(), mostMovedBytes, bytes) : ReadAll(file, mostMovedBytes, bytes);
    if (!error)
        error = put(target, bytes, {});
    return error ? error : NtFile::Delete(source.Get(), true);
}

std::error_code WindowsOwnFiles::Delete(const fs::path& file) {
    std::error_code error;
    std::ignore = PathFile::Open(file, {}, error); // what a link leads to is a regular file
    if (error)
        return error;
    const WinHandle entry = PathFile::Open(file, {.access = DELETE, .flags = FILE_FLAG_OPEN_REPARSE_POINT}, error);
    return error ? error : NtFile::Delete(entry.Get());
}

std::optional<fs::path> WindowsOwnFiles::FindIgnoringCase(const fs::path& folder, const fs::path& name) const {
    std::optional<fs::path> found;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((extended(folder) + L"\\*").c_str(), &entry);
    for (BOOL isMore = search != INVALID_HANDLE_VALUE; isMore != FALSE; isMore = FindNextFileW(search, &entry)) {
        const std::wstring candidate = entry.cFileName;
        const bool isExact = candidate == name.native();
        // The first variant, so that every start finds the same one.
        if (isExact || (CompareStringOrdinal(candidate.c_str(), -1, name.c_str(), -1, TRUE) == CSTR_EQUAL &&
                        (!found || candidate < found->native())))
            found = candidate;
        if (isExact)
            break;
    }
    if (search != INVALID_HANDLE_VALUE)
        FindClose(search);
    return found;
}

bool WindowsOwnFiles::IsWritableFolder(const fs::path& folder) const {
    const WinHandle opened(CreateFileW(extended(folder).c_str(), FILE_ADD_FILE, NtFile::shareAll, nullptr,
                                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return opened.IsOpen() && FolderExists(folder);
}

std::unique_ptr<OwnFiles> MakeOwnFiles() {
    return std::make_unique<WindowsOwnFiles>();
}

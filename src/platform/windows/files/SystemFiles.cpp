#include "SystemFiles.h"
#include "EntryFacts.h"
#include "NtFile.h"
#include "Replacing.h"
#include "WindowsFolder.h"
#include "WindowsName.h"

#include <tuple>

namespace {

WinHandle openToRename(const Folder& folder, const std::filesystem::path& name, std::error_code& error) {
    return NtFile::Open(HandleOf(folder), name, {.access = DELETE | FILE_READ_ATTRIBUTES}, error);
}

/// Before a rename replaces a file: after a power cut both the old bytes and the new ones would be lost.
std::error_code bringToDisk(const Folder& folder, const std::filesystem::path& name) {
    std::error_code error;
    const WinHandle file =
        NtFile::Open(HandleOf(folder), name, {.access = FILE_WRITE_DATA, .kind = NtFile::Kind::File}, error);
    return error ? std::error_code() : NtFile::Flush(file.Get()); // a rename needs no right to write
}

} // namespace

bool SystemFiles::IsUsable(const std::shared_ptr<Folder>& folder) {
    return folder && HandleOf(*folder) != nullptr;
}

bool SystemFiles::IsPlainName(const std::filesystem::path& name) {
    return WindowsName::IsPlain(name);
}

std::error_code SystemFiles::ReadStatus(const Folder& folder, EntryStatus& status) {
    return NtFile::ReadStatus(HandleOf(folder), status);
}

std::error_code SystemFiles::ReadStatus(const Folder& folder, const std::filesystem::path& name, EntryStatus& status) {
    std::error_code error;
    const WinHandle entry = NtFile::Open(HandleOf(folder), name, {}, error);
    return error ? error : NtFile::ReadStatus(entry.Get(), status);
}

bool SystemFiles::IsUnchanged(const FileFacts& facts, const EntryStatus& status) {
    return EntryFacts::KindOf(status) == EntryKind::File && status.id == facts.id && status.size == facts.size &&
           EntryFacts::Nanoseconds(status.modified) == facts.modified.nanoseconds;
}

std::error_code SystemFiles::MakeFolder(const Folder& parent, const std::filesystem::path& name,
                                        const EntryStatus& /*copied*/) {
    std::error_code error;
    const WinHandle folder = NtFile::Open(HandleOf(parent), name, {.kind = NtFile::Kind::Folder, .isNew = true}, error);
    return error;
}

/// A folder that is read-only can be filled all the same.
void SystemFiles::MakeWritable(const Folder& /*folder*/) {}

void SystemFiles::Hide(const Folder& folder) {
    std::error_code error;
    const WinHandle handle =
        NtFile::Open(HandleOf(folder), {}, {.access = FILE_WRITE_ATTRIBUTES, .kind = NtFile::Kind::Folder}, error);
    FILE_BASIC_INFO basic{}; // a time of 0 stays as it is
    basic.FileAttributes = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN;
    if (!error)
        SetFileInformationByHandle(handle.Get(), FileBasicInfo, &basic, sizeof basic);
}

std::error_code SystemFiles::RenameToFreeName(const Folder& from, const std::filesystem::path& oldName,
                                              const Folder& to, const std::filesystem::path& newName) {
    std::error_code error;
    const WinHandle entry = openToRename(from, oldName, error);
    return error ? error : NtFile::Rename(entry.Get(), HandleOf(to), newName, false);
}

/// Only NTFS has hard links, and a rename serves all.
std::error_code SystemFiles::LinkToFreeName(const Folder& /*from*/, const std::filesystem::path& /*oldName*/,
                                            const Folder& /*to*/, const std::filesystem::path& /*newName*/) {
    return std::make_error_code(std::errc::operation_not_supported);
}

std::error_code SystemFiles::RenameOver(const Folder& from, const std::filesystem::path& name, const Folder& to) {
    std::error_code error = bringToDisk(from, name);
    if (error)
        return error;
    const WinHandle entry = openToRename(from, name, error);
    return error ? error : Replacing::Rename(entry.Get(), HandleOf(to), name);
}

/// A folder with an open file in it cannot be renamed, but all other files in it can be moved.
bool SystemFiles::NeedsCopy(const std::error_code& error, EntryKind kind) {
    const bool isHeldInside = error == std::errc::permission_denied || error == std::errc::device_or_resource_busy;
    return error == std::errc::cross_device_link || (kind == EntryKind::Folder && isHeldInside);
}

bool SystemFiles::MayPassAfterCommit(const std::error_code& error) {
    return error == std::errc::no_space_on_device || error == std::errc::too_many_files_open;
}

/// The system sets no narrow limit.
std::size_t SystemFiles::HandlesOfABatch() {
    return 2048;
}

std::error_code SystemFiles::MakeMark(const Folder& folder, const std::string& name) {
    std::error_code error;
    const WinHandle mark =
        NtFile::Open(HandleOf(folder), name,
                     {.kind = NtFile::Kind::File, .isNew = true, .attributes = FILE_ATTRIBUTE_HIDDEN}, error);
    return error;
}

std::error_code SystemFiles::RemoveMark(const Folder& folder, const std::filesystem::path& name) {
    std::error_code error;
    const WinHandle mark = openToRename(folder, name, error);
    if (!error)
        error = NtFile::Delete(mark.Get());
    return error == std::errc::no_such_file_or_directory ? std::error_code() : error;
}

void SystemFiles::RenameMark(const Folder& folder, const std::string& oldName, const std::string& newName) {
    std::ignore = RenameToFreeName(folder, oldName, folder, newName);
}

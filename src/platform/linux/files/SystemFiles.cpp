#include "SystemFiles.h"
#include "LinuxFolder.h"

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <sys/resource.h>

namespace {

constexpr rlim_t wantedDescriptors = 16384;
constexpr rlim_t mostInABatch = 2048;
constexpr mode_t ownerMayFill = 0700;
constexpr mode_t ownerMayWrite = 0600;
constexpr mode_t groupBits = 0070;

std::error_code rename(const Folder& from, const char* oldName, const Folder& to, const char* newName) {
    return ::renameat(DescriptorOf(from), oldName, DescriptorOf(to), newName) == 0 ? std::error_code() : LastError();
}

/// Before a rename replaces a file: after a power cut both the old bytes and the new ones would be lost.
std::error_code bringToDisk(const Folder& folder, const char* name) {
    const FileDescriptor file(::openat(DescriptorOf(folder), name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    if (!file.IsOpen())
        return {}; // a rename needs no read permission
    return ::fdatasync(file.Get()) == 0 || errno == EINVAL ? std::error_code() : LastError();
}

} // namespace

bool SystemFiles::IsUsable(const std::shared_ptr<Folder>& folder) {
    return folder && DescriptorOf(*folder) >= 0;
}

bool SystemFiles::IsPlainName(const std::filesystem::path& name) {
    return LinuxFolder::IsPlainName(name);
}

std::error_code SystemFiles::ReadStatus(const Folder& folder, EntryStatus& status) {
    return ::fstat(DescriptorOf(folder), &status) == 0 ? std::error_code() : LastError();
}

std::error_code SystemFiles::ReadStatus(const Folder& folder, const std::filesystem::path& name, EntryStatus& status) {
    return ::fstatat(DescriptorOf(folder), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 ? std::error_code()
                                                                                            : LastError();
}

bool SystemFiles::IsUnchanged(const FileFacts& facts, const EntryStatus& status) {
    return ::IsUnchanged(facts, status);
}

/// Never more permissive than the source, not even for a moment, but its owner must be able to fill it. Until the
/// folder gets its attributes its group may differ from the source's, so the group gets nothing.
std::error_code SystemFiles::MakeFolder(const Folder& parent, const std::filesystem::path& name,
                                        const EntryStatus& copied) {
    const mode_t mode = (copied.st_mode & 0777U & ~groupBits) | ownerMayFill;
    return ::mkdirat(DescriptorOf(parent), name.c_str(), mode) == 0 ? std::error_code() : LastError();
}

void SystemFiles::MakeWritable(const Folder& folder) {
    struct stat status {};
    if (::fstat(DescriptorOf(folder), &status) == 0 && (status.st_mode & ownerMayFill) != ownerMayFill)
        std::ignore = ::fchmod(DescriptorOf(folder), (status.st_mode & 07777U) | ownerMayFill);
}

/// A dot begins its name.
void SystemFiles::Hide(const Folder& /*folder*/) {}

/// Where the file system only knows the replacing kind of rename, it looks first.
std::error_code SystemFiles::RenameToFreeName(const Folder& from, const std::filesystem::path& oldName,
                                              const Folder& to, const std::filesystem::path& newName) {
    if (::renameat2(DescriptorOf(from), oldName.c_str(), DescriptorOf(to), newName.c_str(), RENAME_NOREPLACE) == 0)
        return {};
    const std::error_code error = LastError();
    const bool isUnknown = error == ErrorOf(EINVAL) || error == ErrorOf(ENOSYS) || error == ErrorOf(EOPNOTSUPP);
    if (!isUnknown)
        return error;
    std::error_code lookError;
    if (to.Stat(newName, lookError))
        return ErrorOf(EEXIST);
    return lookError ? lookError : rename(from, oldName.c_str(), to, newName.c_str());
}

std::error_code SystemFiles::LinkToFreeName(const Folder& from, const std::filesystem::path& oldName, const Folder& to,
                                            const std::filesystem::path& newName) {
    return ::linkat(DescriptorOf(from), oldName.c_str(), DescriptorOf(to), newName.c_str(), 0) == 0 ? std::error_code()
                                                                                                    : LastError();
}

std::error_code SystemFiles::RenameOver(const Folder& from, const std::filesystem::path& name, const Folder& to) {
    const std::error_code error = bringToDisk(from, name.c_str());
    return error ? error : rename(from, name.c_str(), to, name.c_str());
}

/// EXDEV: across devices. EBUSY: a mount point.
bool SystemFiles::NeedsCopy(const std::error_code& error, EntryKind /*kind*/) {
    return error == ErrorOf(EXDEV) || error == ErrorOf(EBUSY);
}

bool SystemFiles::MayPassAfterCommit(const std::error_code& error) {
    return error == ErrorOf(ENOSPC) || error == ErrorOf(EDQUOT) || error == ErrorOf(EMFILE) || error == ErrorOf(ENFILE);
}

/// Larger batches need fewer syncs, but every file in a batch holds a descriptor. The usual limit of 1024 protects
/// programs that use select(), which this one does not. It is raised, but not so far that programs started from here
/// suffer. Both batches together leave three quarters of it to the rest of the program.
std::size_t SystemFiles::HandlesOfABatch() {
    struct rlimit limit {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return 8;
    const rlim_t wanted = std::min(limit.rlim_max, wantedDescriptors);
    if (limit.rlim_cur < wanted) {
        const struct rlimit raised { wanted, limit.rlim_max };
        if (::setrlimit(RLIMIT_NOFILE, &raised) == 0)
            limit.rlim_cur = wanted;
    }
    return static_cast<std::size_t>(std::clamp<rlim_t>(limit.rlim_cur / 8, 8, mostInABatch));
}

std::error_code SystemFiles::MakeMark(const Folder& folder, const std::string& name) {
    const FileDescriptor file(::openat(DescriptorOf(folder), name.c_str(),
                                       O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, ownerMayWrite));
    return file.IsOpen() ? std::error_code() : LastError();
}

std::error_code SystemFiles::RemoveMark(const Folder& folder, const std::filesystem::path& name) {
    return ::unlinkat(DescriptorOf(folder), name.c_str(), 0) == 0 || errno == ENOENT ? std::error_code() : LastError();
}

void SystemFiles::RenameMark(const Folder& folder, const std::string& oldName, const std::string& newName) {
    std::ignore = rename(folder, oldName.c_str(), folder, newName.c_str());
}

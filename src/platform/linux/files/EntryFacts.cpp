#include "EntryFacts.h"
#include "FileDescriptor.h"
#include "SystemError.h"

#include <fcntl.h>
#include <limits>
#include <linux/magic.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

constexpr std::int64_t kBillion = 1'000'000'000;

EntryKind kindOf(const struct stat& status, bool isLink) {
    if (S_ISREG(status.st_mode))
        return EntryKind::File;
    if (S_ISDIR(status.st_mode))
        return isLink ? EntryKind::FolderLink : EntryKind::Folder;
    return EntryKind::Special;
}

FileFacts factsOf(const struct stat& status, bool isLink, std::int64_t timeStep) {
    return {.kind = kindOf(status, isLink),
            .isLink = isLink,
            .id = IdOf(status),
            .size = static_cast<std::uint64_t>(status.st_size),
            .modified = {ToNanoseconds(status.st_mtim), timeStep},
            .mode = status.st_mode & 07777U};
}

/// A link may lead to another file system, whose times are stored in other steps.
std::int64_t timeStepOfTarget(int folder, const char* name) {
    const FileDescriptor target(::openat(folder, name, O_PATH | O_CLOEXEC));
    return target.IsOpen() ? TimeStepOf(target.Get()) : 1;
}

/// There is nothing behind the link.
bool isDangling(const std::error_code& error) {
    return error == ErrorOf(ENOENT) || error == ErrorOf(ENOTDIR) || error == ErrorOf(ELOOP) ||
           error == ErrorOf(ENAMETOOLONG);
}

bool mayFollow(const struct stat& link, const struct stat& target) {
    return !S_ISREG(target.st_mode) || link.st_uid == ::geteuid() || link.st_uid == target.st_uid;
}

} // namespace

std::int64_t ToNanoseconds(const struct timespec& time) {
    if (time.tv_sec >= std::numeric_limits<std::int64_t>::max() / kBillion)
        return std::numeric_limits<std::int64_t>::max();
    if (time.tv_sec <= std::numeric_limits<std::int64_t>::min() / kBillion)
        return std::numeric_limits<std::int64_t>::min();
    return time.tv_sec * kBillion + time.tv_nsec;
}

FileId IdOf(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}

std::int64_t TimeStepOf(int descriptor) {
    struct statfs fileSystem {};
    const bool isFat = ::fstatfs(descriptor, &fileSystem) == 0 && fileSystem.f_type == MSDOS_SUPER_MAGIC;
    return isFat ? 2 * kBillion : 1;
}

std::error_code ReadEntryFacts(int folder, const char* name, std::uint64_t device, std::int64_t timeStep,
                               FileFacts& facts) {
    struct stat status {};
    facts = {};
    if (::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) != 0)
        return LastError();
    if (!S_ISLNK(status.st_mode)) {
        facts = factsOf(status, false, timeStep);
        return {};
    }
    facts.isLink = true;
    struct stat target {};
    if (::fstatat(folder, name, &target, 0) != 0) {
        const std::error_code error = LastError();
        return isDangling(error) ? std::error_code() : error;
    }
    if (!mayFollow(status, target))
        return ErrorOf(EACCES);
    facts = factsOf(target, true, target.st_dev == device ? timeStep : timeStepOfTarget(folder, name));
    return {};
}

bool IsUnchanged(const FileFacts& facts, const struct stat& status) {
    return S_ISREG(status.st_mode) && IdOf(status) == facts.id &&
           static_cast<std::uint64_t>(status.st_size) == facts.size &&
           ToNanoseconds(status.st_mtim) == facts.modified.nanoseconds;
}

#include "SourceRemoval.h"
#include "LinuxFolder.h"
#include "SystemCall.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <vector>

namespace {

constexpr std::size_t readBuffer = std::size_t{256} * 1024;

/// True for the same bytes; false also when they cannot be read or the observer gives up.
bool haveSameBytes(int first, int second, TransferObserver& observer) {
    std::vector<char> one(readBuffer);
    std::vector<char> other(readBuffer);
    for (off_t at = 0;;) {
        const ssize_t count = ::pread(first, one.data(), one.size(), at);
        if (count <= 0)
            return count == 0 && ::pread(second, other.data(), 1, at) == 0;
        const auto length = static_cast<std::size_t>(count);
        std::size_t read = 0;
        while (read < length) {
            const ssize_t more = ::pread(second, other.data() + read, length - read, at + static_cast<off_t>(read));
            if (more <= 0)
                return false;
            read += static_cast<std::size_t>(more);
        }
        observer.Progress(0);
        if (std::memcmp(one.data(), other.data(), length) != 0 || observer.MustGiveUp())
            return false;
        at += count;
    }
}

FileDescriptor openFile(const Folder& folder, const std::filesystem::path& name, int flags) {
    return FileDescriptor(
        ::openat(DescriptorOf(folder), name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | flags));
}

/// The present entry is the one that was opened as `file`, with the same bytes.
bool isStill(const Folder& folder, const std::filesystem::path& name, const struct stat& file) {
    struct stat now {};
    return ::fstatat(DescriptorOf(folder), name.c_str(), &now, 0) == 0 && IsSameContent(file, now);
}

std::error_code removeEntry(const FileJob& job) {
    return ::unlinkat(DescriptorOf(*job.source), job.name.c_str(), 0) == 0 ? std::error_code() : LastError();
}

/// After a change of owner, rights or links alone, the bytes are still those of the copy.
bool hasBytesOfCopy(const StagedFile& file, const struct stat& entry, TransferObserver& observer) {
    const FileDescriptor source = openFile(*file.job.source, file.job.name, O_NOFOLLOW);
    return source.IsOpen() && haveSameBytes(source.Get(), file.copy.Descriptor(), observer) &&
           isStill(*file.job.source, file.job.name, entry);
}

} // namespace

std::error_code RemoveSource(const StagedFile& file, TransferObserver& observer) {
    struct stat entry {};
    if (::fstatat(DescriptorOf(*file.job.source), file.job.name.c_str(), &entry, AT_SYMLINK_NOFOLLOW) != 0)
        return LastError();
    // A link leaves nothing behind that only it holds: the file that it leads to stays.
    const bool isSame =
        IsSameContent(file.sourceEntry, entry) ||
        (!file.job.facts.isLink && IsUnchanged(file.job.facts, entry) && hasBytesOfCopy(file, entry, observer));
    return isSame ? removeEntry(file.job) : ErrorOf(EAGAIN);
}

bool RemoveSourceOfEqualFile(const FileJob& job, TransferObserver& observer) {
    const FileDescriptor source = openFile(*job.source, job.name, job.facts.isLink ? 0 : O_NOFOLLOW);
    const FileDescriptor copy = openFile(*job.destination, job.name, O_NOFOLLOW);
    struct stat from {};
    struct stat to {};
    if (!source.IsOpen() || !copy.IsOpen() || ::fstat(source.Get(), &from) != 0 || ::fstat(copy.Get(), &to) != 0 ||
        !IsUnchanged(job.facts, from) || !S_ISREG(to.st_mode) || from.st_size != to.st_size ||
        (from.st_dev == to.st_dev && from.st_ino == to.st_ino))
        return false;
    if (!haveSameBytes(source.Get(), copy.Get(), observer) || (::fsync(copy.Get()) != 0 && errno != EINVAL) ||
        (::fsync(DescriptorOf(*job.destination)) != 0 && errno != EINVAL))
        return false;
    return isStill(*job.source, job.name, from) && isStill(*job.destination, job.name, to) && !removeEntry(job);
}

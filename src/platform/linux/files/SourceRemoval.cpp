#include "SourceRemoval.h"
#include "LinuxFolder.h"
#include "SameBytes.h"
#include "SystemCall.h"

#include <fcntl.h>

namespace {

ReadBytes readerOf(int file) {
    return [file](std::uint64_t at, std::vector<char>& bytes) {
        std::size_t filled = 0;
        for (ssize_t count = 1; count > 0 && filled < bytes.size(); filled += static_cast<std::size_t>(count)) {
            count = ::pread(file, bytes.data() + filled, bytes.size() - filled, static_cast<off_t>(at + filled));
            if (count < 0)
                return false;
        }
        bytes.resize(filled);
        return true;
    };
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
    return source.IsOpen() && HaveSameBytes(readerOf(source.Get()), readerOf(file.copy.Descriptor()), observer) &&
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
    if (!HaveSameBytes(readerOf(source.Get()), readerOf(copy.Get()), observer) ||
        (::fsync(copy.Get()) != 0 && errno != EINVAL) ||
        (::fsync(DescriptorOf(*job.destination)) != 0 && errno != EINVAL))
        return false;
    return isStill(*job.source, job.name, from) && isStill(*job.destination, job.name, to) && !removeEntry(job);
}

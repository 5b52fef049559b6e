#include "FileStager.h"
#include "LinuxFolder.h"
#include "SystemCall.h"

#include <algorithm>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::int64_t blockSize = 512;
constexpr std::uint64_t chunk = std::uint64_t{4} * 1024 * 1024;
constexpr std::size_t readBuffer = std::size_t{256} * 1024;
constexpr std::uint64_t worthCloning = std::uint64_t{64} * 1024;
constexpr std::uint64_t mostUnwritten = std::uint64_t{64} * 1024 * 1024;
constexpr std::uint64_t worthEarlyWriting = std::uint64_t{8} * 1024 * 1024;

/// Reading and writing would fail with these errors too.
bool isFinal(int error) {
    return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

/// Every file of these two file systems would fail with these errors.
bool isForAllFiles(int error) {
    return error == EXDEV || error == ENOSYS || error == EOPNOTSUPP || error == EINVAL || error == EPERM;
}

std::error_code writeAt(int file, const char* bytes, std::size_t count, std::uint64_t at) {
    while (count > 0) {
        const ssize_t written = ::pwrite(file, bytes, count, static_cast<off_t>(at));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? LastError() : ErrorOf(EIO);
        bytes += written;
        at += static_cast<std::uint64_t>(written);
        count -= static_cast<std::size_t>(written);
    }
    return {};
}

/// An error is reported once only: the final sync would not know of it.
std::error_code writeEarly(int file, std::uint64_t at, std::uint64_t count, unsigned how) {
    const bool isFine = ::sync_file_range(file, static_cast<off_t>(at), static_cast<off_t>(count), how) == 0 ||
                        errno == ENOSYS || errno == EINVAL;
    return isFine ? std::error_code() : LastError();
}

} // namespace

std::error_code ByteCopier::Copy(const Job& job) {
    Methods& methods = m_methods[{job.sourceDevice, job.destinationDevice}];
    if (job.size >= worthCloning && methods.clone) {
        if (::ioctl(job.destination, FICLONE, job.source) == 0) {
            m_observer.Progress(job.size);
            return {};
        }
        methods.clone = false;
    }
    std::error_code error = job.mayHaveHoles ? copySegments(job, methods) : copyRange(job, methods, 0, job.size);
    if (error || (!job.checkEnd && job.size > 0))
        return error;
    // Some file systems report size 0 for files whose content they generate on reading.
    struct stat status {};
    char beyond = 0;
    if (::fstat(job.source, &status) != 0 || !S_ISREG(status.st_mode))
        return ErrorOf(EIO);
    const ssize_t length = ::pread(job.source, &beyond, 1, static_cast<off_t>(job.size));
    if (length < 0)
        return LastError();
    return length == 0 ? std::error_code() : ErrorOf(EIO);
}

/// Starts to write large files to disk early and keeps the backlog small: otherwise the final sync, which cannot be
/// interrupted, takes minutes on a slow disk.
std::error_code ByteCopier::copied(const Job& job, std::uint64_t at, std::uint64_t count) {
    if (job.size >= worthEarlyWriting) {
        std::error_code error = writeEarly(job.destination, at, count, SYNC_FILE_RANGE_WRITE);
        if (!error && at >= mostUnwritten)
            error = writeEarly(job.destination, at - mostUnwritten, count,
                               SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
        if (error)
            return error;
    }
    m_observer.Progress(count);
    return m_observer.MustGiveUp() ? ErrorOf(ECANCELED) : std::error_code();
}

std::error_code ByteCopier::copyRange(const Job& job, Methods& methods, std::uint64_t begin, std::uint64_t end) {
    std::uint64_t at = begin;
    if (methods.copyRange) {
        if (const std::error_code error = copyByRanges(job, methods, at, end))
            return error;
    }
    return at < end ? copyByReading(job, at, end) : std::error_code();
}

/// Leaves `at` before `end` when the rest has to be read and written.
std::error_code ByteCopier::copyByRanges(const Job& job, Methods& methods, std::uint64_t& at, std::uint64_t end) {
    while (at < end) {
        off_t from = static_cast<off_t>(at);
        off_t to = from;
        const ssize_t count = ::copy_file_range(job.source, &from, job.destination, &to, std::min(end - at, chunk), 0);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && isFinal(errno))
            return LastError();
        if (count < 0 && isForAllFiles(errno))
            methods.copyRange = false;
        if (count <= 0)
            return {}; // 0: the end, or a file system that does not support it and does not say so
        if (const std::error_code error = copied(job, at, static_cast<std::uint64_t>(count)))
            return error;
        at += static_cast<std::uint64_t>(count);
    }
    return {};
}

std::error_code ByteCopier::copyByReading(const Job& job, std::uint64_t& at, std::uint64_t end) {
    struct stat status {};
    if (::fstat(job.source, &status) != 0)
        return LastError();
    if (!S_ISREG(status.st_mode))
        return ErrorOf(EINVAL); // replaced since it was listed: reading it could have side effects
    m_buffer.resize(readBuffer);
    std::uint64_t reported = at;
    while (at < end) {
        const std::size_t wanted = static_cast<std::size_t>(std::min<std::uint64_t>(end - at, m_buffer.size()));
        const ssize_t count = ::pread(job.source, m_buffer.data(), wanted, static_cast<off_t>(at));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count < 0 ? LastError() : ErrorOf(EIO);
        if (const auto error = writeAt(job.destination, m_buffer.data(), static_cast<std::size_t>(count), at))
            return error;
        at += static_cast<std::uint64_t>(count);
        if (at - reported >= chunk || at == end) {
            if (const std::error_code error = copied(job, reported, at - reported))
                return error;
            reported = at;
        }
    }
    return {};
}

std::error_code ByteCopier::copySegments(const Job& job, Methods& methods) {
    std::uint64_t at = 0;
    while (at < job.size) {
        const off_t data = ::lseek(job.source, static_cast<off_t>(at), SEEK_DATA);
        if (data < 0 && errno == ENXIO)
            break; // only a hole up to the end
        if (data < 0)
            return copyRange(job, methods, at, job.size);
        const off_t hole = ::lseek(job.source, data, SEEK_HOLE);
        const std::uint64_t begin = std::min(static_cast<std::uint64_t>(data), job.size);
        const std::uint64_t end = hole < 0 ? job.size : std::min(static_cast<std::uint64_t>(hole), job.size);
        if (const std::error_code error = copyRange(job, methods, begin, end))
            return error;
        at = std::max(end, at + 1);
    }
    return ::ftruncate(job.destination, static_cast<off_t>(job.size)) == 0 ? std::error_code() : LastError();
}

std::error_code FileStager::Stage(const FileJob& job, StagedFile& staged) {
    // Before it is followed: a link that is exchanged later leads to something else.
    if (job.facts.isLink &&
        ::fstatat(DescriptorOf(*job.source), job.name.c_str(), &staged.sourceEntry, AT_SYMLINK_NOFOLLOW) != 0)
        return LastError();
    const int followLink = job.facts.isLink ? 0 : O_NOFOLLOW;
    const FileDescriptor source(::openat(DescriptorOf(*job.source), job.name.c_str(),
                                         O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | followLink));
    struct stat before {};
    if (!source.IsOpen() || ::fstat(source.Get(), &before) != 0)
        return LastError();
    if (!IsUnchanged(job.facts, before))
        return ErrorOf(EAGAIN);
    TemporaryFile copy;
    if (const std::error_code error = m_temporaries.Create(job.destination, job.facts.mode, copy))
        return error;
    if (const std::error_code error = copyInto(job, source.Get(), before, copy))
        return error;
    if (!job.facts.isLink)
        staged.sourceEntry = before;
    staged.job = job;
    staged.copy = std::move(copy);
    return {};
}

std::error_code FileStager::copyInto(const FileJob& job, int source, const struct stat& before, TemporaryFile& copy) {
    const std::error_code failure = m_bytes.Copy({.source = source,
                                                  .destination = copy.Descriptor(),
                                                  .size = job.facts.size,
                                                  .mayHaveHoles = before.st_blocks * blockSize < before.st_size,
                                                  .checkEnd = job.removeSource,
                                                  .sourceDevice = job.facts.id.device,
                                                  .destinationDevice = job.destination->Id().device});
    struct stat status {};
    if (::fstat(source, &status) != 0)
        return LastError();
    // A changed source explains a failure, and makes a copy without one useless.
    if (!IsSameContent(before, status))
        return ErrorOf(EAGAIN);
    if (failure)
        return failure;
    const bool hasMode = copy.HasFinalMode() && (status.st_mode & 07777U) == job.facts.mode;
    return m_attributes.CopyToFile(source, status, copy, hasMode);
}

#include "ByteCopier.h"
#include "SystemError.h"

#include <algorithm>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::uint64_t kChunk = std::uint64_t{4} * 1024 * 1024;
constexpr std::size_t kReadBuffer = std::size_t{256} * 1024;
constexpr std::uint64_t kWorthCloning = std::uint64_t{64} * 1024;
constexpr std::uint64_t kMostUnwritten = std::uint64_t{64} * 1024 * 1024;
constexpr std::uint64_t kWorthEarlyWriting = std::uint64_t{8} * 1024 * 1024;

/// Errors that reading and writing would meet as well.
bool isFinal(int error) {
    return error == ENOSPC || error == EDQUOT || error == EFBIG;
}

/// Errors that every file of these two file systems would meet.
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

} // namespace

std::error_code ByteCopier::Copy(const Job& job) {
    Methods& methods = m_methods[{job.sourceDevice, job.destinationDevice}];
    if (job.size >= kWorthCloning && methods.clone) {
        if (::ioctl(job.destination, FICLONE, job.source) == 0) {
            m_observer.Progress(job.size);
            return {};
        }
        methods.clone = false;
    }
    std::error_code error = job.mayHaveHoles ? copySegments(job, methods) : copyRange(job, methods, 0, job.size);
    if (error || (!job.checkEnd && job.size > 0))
        return error;
    // Some file systems name a size of 0 for whatever they make up on reading.
    struct stat status {};
    char beyond = 0;
    if (::fstat(job.source, &status) != 0 || !S_ISREG(status.st_mode))
        return ErrorOf(EIO);
    const ssize_t length = ::pread(job.source, &beyond, 1, static_cast<off_t>(job.size));
    if (length < 0)
        return LastError();
    return length == 0 ? std::error_code() : ErrorOf(EIO);
}

/// Large files start on their way to disk at once and never have much before them: the sync at the end, which nothing
/// can cut short, would else take minutes on a slow disk.
std::error_code ByteCopier::copied(const Job& job, std::uint64_t at, std::uint64_t count) {
    if (job.size >= kWorthEarlyWriting) {
        ::sync_file_range(job.destination, static_cast<off_t>(at), static_cast<off_t>(count), SYNC_FILE_RANGE_WRITE);
        if (at >= kMostUnwritten)
            ::sync_file_range(job.destination, static_cast<off_t>(at - kMostUnwritten), static_cast<off_t>(count),
                              SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
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

/// Leaves `at` short of `end` where the rest has to be read and written.
std::error_code ByteCopier::copyByRanges(const Job& job, Methods& methods, std::uint64_t& at, std::uint64_t end) {
    while (at < end) {
        off_t from = static_cast<off_t>(at);
        off_t to = from;
        const ssize_t count = ::copy_file_range(job.source, &from, job.destination, &to, std::min(end - at, kChunk), 0);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && isFinal(errno))
            return LastError();
        if (count < 0 && isForAllFiles(errno))
            methods.copyRange = false;
        if (count <= 0)
            return {}; // 0 may be the end, or a file system that cannot do it and does not say so
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
        return ErrorOf(EINVAL); // put in the file's place since it was listed: reading could have effects
    m_buffer.resize(kReadBuffer);
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
        if (at - reported >= kChunk || at == end) {
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
            break; // nothing but a hole up to the end
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

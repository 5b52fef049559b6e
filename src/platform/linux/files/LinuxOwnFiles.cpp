#include "LinuxOwnFiles.h"
#include "AtomicFile.h"
#include "DiskSync.h"
#include "SystemCall.h"
#include "SystemFiles.h"

#include <QString>
#include <algorithm>
#include <fcntl.h>
#include <tuple>

namespace {

namespace fs = std::filesystem;

constexpr mode_t ordinaryMode = 0644;
constexpr std::int64_t mostMovedBytes = std::int64_t{4} << 30;
constexpr qsizetype readStep = 1 << 20;

std::error_code renameToFreeName(const fs::path& file, const fs::path& target) {
    std::error_code error;
    const auto from = AtomicFile::OpenFolderOf(file, error);
    const auto to = from ? AtomicFile::OpenFolderOf(target, error) : nullptr;
    if (to)
        error = SystemFiles::RenameToFreeName(*from, file.filename(), *to, target.filename());
    return error ? error : SyncFolders({to, from});
}

} // namespace

std::optional<FileStamp> LinuxOwnFiles::Stamp(const fs::path& file) const {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
    return FileStamp{{status.st_dev, status.st_ino},
                     static_cast<std::uint64_t>(status.st_size),
                     status.st_mtim.tv_sec * nanosecondsPerSecond + status.st_mtim.tv_nsec};
}

bool LinuxOwnFiles::FolderExists(const fs::path& folder) const {
    std::error_code error;
    return fs::is_directory(folder, error);
}

std::error_code LinuxOwnFiles::ReadAll(const fs::path& file, std::int64_t limit, QByteArray& bytes) const {
    bytes.clear();
    FileDescriptor opened;
    struct stat status {};
    if (const std::error_code error = OpenRegular(file, O_RDONLY, opened, status))
        return error;
    if (status.st_size > limit)
        return std::make_error_code(std::errc::file_too_large);
    QByteArray read;
    read.reserve(static_cast<qsizetype>(status.st_size) + 1);
    // Read to the end: the size may have changed, and some file systems report none.
    for (;;) {
        const qsizetype before = read.size();
        read.resize(before + std::max<qsizetype>(read.capacity() - before, readStep));
        const ssize_t got = ::read(opened.Get(), read.data() + before, static_cast<size_t>(read.size() - before));
        const int failure = errno;
        read.resize(before + std::max<ssize_t>(got, 0));
        if (got < 0 && failure != EINTR)
            return ErrorOf(failure);
        if (read.size() > limit)
            return std::make_error_code(std::errc::file_too_large);
        if (got == 0)
            break;
    }
    bytes = read;
    return {};
}

std::error_code LinuxOwnFiles::ReplaceAll(const fs::path& file, const QByteArray& bytes) {
    return AtomicFile::Replace(file, bytes, ordinaryMode);
}

std::error_code LinuxOwnFiles::CreateNew(const fs::path& file, const QByteArray& bytes) {
    std::error_code error;
    fs::create_directories(AtomicFile::FolderOf(file), error);
    return error ? error : AtomicFile::Create(file, bytes, ordinaryMode);
}

std::error_code LinuxOwnFiles::Append(const fs::path& file, const QByteArray& bytes, bool create) {
    FileDescriptor opened;
    struct stat status {};
    if (const std::error_code error = OpenRegular(file, O_WRONLY | O_APPEND | (create ? O_CREAT : 0), opened, status))
        return error;
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written =
            ::write(opened.Get(), bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            const std::error_code error = written < 0 ? LastError() : std::make_error_code(std::errc::io_error);
            // Truncate an incomplete line, unless another process has appended to it.
            struct stat now {};
            if (done > 0 && ::fstat(opened.Get(), &now) == 0 && now.st_size == status.st_size + done)
                std::ignore = ::ftruncate(opened.Get(), status.st_size);
            return error;
        }
        done += written;
    }
    return opened.Close() ? std::error_code() : LastError();
}

std::error_code LinuxOwnFiles::MoveAway(const fs::path& file, const fs::path& target) {
    struct stat status {};
    if (::lstat(file.c_str(), &status) != 0)
        return LastError();
    // Copy a link instead of renaming it: a relative target leads elsewhere from another folder.
    if (!S_ISLNK(status.st_mode)) {
        if (!S_ISREG(status.st_mode))
            return NotRegular(status.st_mode);
        const std::error_code error = renameToFreeName(file, target);
        if (error != std::errc::cross_device_link)
            return error;
    }
    return copyAway(file, target);
}

std::error_code LinuxOwnFiles::copyAway(const fs::path& file, const fs::path& target) const {
    const std::optional<FileStamp> stamp = Stamp(file);
    struct stat status {};
    QByteArray bytes;
    std::error_code error = ReadAll(file, mostMovedBytes, bytes);
    if (!error && ::stat(file.c_str(), &status) != 0)
        error = LastError();
    if (!error)
        error = AtomicFile::Create(target, bytes, status.st_mode & 0777);
    if (error)
        return error;
    // Bytes written meanwhile are not in the copy. The copy stays in any case.
    if (Stamp(file) != stamp)
        return std::make_error_code(std::errc::device_or_resource_busy);
    return ::unlink(file.c_str()) == 0 ? std::error_code() : LastError();
}

std::error_code LinuxOwnFiles::Delete(const fs::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0)
        return LastError();
    if (!S_ISREG(status.st_mode))
        return NotRegular(status.st_mode);
    return ::unlink(file.c_str()) == 0 ? std::error_code() : LastError();
}

std::optional<fs::path> LinuxOwnFiles::FindIgnoringCase(const fs::path& folder, const fs::path& name) const {
    const QString wanted = QString::fromStdString(name.string());
    std::optional<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const fs::path candidate = entry->path().filename();
        if (candidate == name)
            return candidate;
        // The first variant by bytes, so that every start finds the same one.
        if (QString::fromStdString(candidate.string()).compare(wanted, Qt::CaseInsensitive) == 0 &&
            (!found || candidate.native() < found->native()))
            found = candidate;
    }
    return found;
}

bool LinuxOwnFiles::IsWritableFolder(const fs::path& folder) const {
    return FolderExists(folder) && ::access(folder.c_str(), W_OK | X_OK) == 0;
}

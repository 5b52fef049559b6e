#include "AtomicFile.h"
#include "Attributes.h"
#include "DiskSync.h"
#include "LinuxFolder.h"
#include "SystemCall.h"
#include "TemporaryFiles.h"

#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int mostLinks = 40; // the kernel's own limit
constexpr mode_t privateMode = 0600;

/// The name behind a chain of links, which need not exist.
std::error_code followLinks(fs::path& file) {
    for (int i = 0; i < mostLinks; ++i) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(file, error)))
            return {};
        const fs::path target = fs::read_symlink(file, error);
        if (error)
            return error;
        file = target.is_absolute() ? target : AtomicFile::FolderOf(file) / target;
    }
    return std::make_error_code(std::errc::too_many_symbolic_link_levels);
}

/// The entry of this name; nullopt without an error when there is none.
std::optional<struct stat> look(const fs::path& file, std::error_code& error) {
    struct stat status {};
    if (::lstat(file.c_str(), &status) == 0)
        return status;
    if (errno != ENOENT)
        error = LastError();
    return std::nullopt;
}

/// A file that will be replaced.
struct OldFile {
    FileDescriptor file; ///< open for reading or writing, whichever is allowed, to read its attributes
    struct stat status {};
};

std::error_code openOld(const fs::path& path, OldFile& old) {
    if (::access(path.c_str(), W_OK) != 0)
        return LastError();
    const std::error_code error = OpenRegular(path, O_RDONLY, old.file, old.status);
    return error == std::errc::permission_denied ? OpenRegular(path, O_WRONLY, old.file, old.status) : error;
}

std::error_code writeToDisk(int file, const QByteArray& bytes) {
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t written = ::write(file, bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? LastError() : ErrorOf(EIO);
        done += written;
    }
    return ::fsync(file) == 0 || errno == EINVAL ? std::error_code() : LastError();
}

/// Creates a complete temporary and syncs it. With `old` it gets that file's owner, access list, attributes and bits.
std::error_code prepare(TemporaryFiles& temporaries, const std::shared_ptr<Folder>& folder, const QByteArray& bytes,
                        mode_t newMode, const OldFile* old, TemporaryFile& file) {
    if (const std::error_code error = temporaries.Create(folder, old != nullptr ? privateMode : newMode, file))
        return error;
    std::error_code error;
    if (old != nullptr)
        error = Attributes::CopyToReplacement(old->file.Get(), old->status, file.Descriptor());
    else if (!file.HasFinalMode() && ::fchmod(file.Descriptor(), newMode & ~temporaries.CreationMask()) != 0)
        error = LastError();
    return error ? error : writeToDisk(file.Descriptor(), bytes);
}

} // namespace

fs::path AtomicFile::FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

std::shared_ptr<Folder> AtomicFile::OpenFolderOf(const fs::path& file, std::error_code& error) {
    const fs::path folder = FolderOf(file);
    return LinuxFolder::Open(AT_FDCWD, folder.c_str(), std::make_shared<FolderPlace>(folder), true, error);
}

std::error_code AtomicFile::Replace(const fs::path& file, const QByteArray& bytes, mode_t newMode) {
    fs::path target = file;
    std::error_code error = followLinks(target);
    if (error)
        return error;
    const auto status = look(target, error);
    if (!error && status && !S_ISREG(status->st_mode))
        error = NotRegular(status->st_mode);
    OldFile old;
    if (!error && status)
        error = openOld(target, old);
    if (error)
        return error;
    const std::shared_ptr<Folder> folder = OpenFolderOf(target, error);
    if (!folder)
        return error;
    folder->RemoveLeftovers();
    TemporaryFiles temporaries;
    TemporaryFile copy;
    error = prepare(temporaries, folder, bytes, newMode, status ? &old : nullptr, copy);
    if (!error)
        error = status ? temporaries.Replace(copy, target.filename())
                       : temporaries.PlaceAtFreeName(copy, target.filename());
    return error ? error : SyncFolders({folder});
}

std::error_code AtomicFile::Put(const fs::path& file, const QByteArray& bytes, mode_t newMode) {
    std::error_code error;
    fs::create_directories(FolderOf(file), error);
    return error ? error : Replace(file, bytes, newMode);
}

std::error_code AtomicFile::Create(const fs::path& file, const QByteArray& bytes, mode_t newMode) {
    std::error_code error;
    const std::shared_ptr<Folder> folder = OpenFolderOf(file, error);
    if (!folder)
        return error;
    TemporaryFiles temporaries;
    TemporaryFile copy;
    error = prepare(temporaries, folder, bytes, newMode, nullptr, copy);
    if (!error)
        error = temporaries.PlaceAtFreeName(copy, file.filename());
    return error ? error : SyncFolders({folder});
}

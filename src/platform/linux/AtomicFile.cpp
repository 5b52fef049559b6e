#include "AtomicFile.h"
#include "FileDescriptor.h"
#include "TemporaryName.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

constexpr int mostLinks = 40; // as the kernel itself follows
constexpr int mostNames = 100;

std::error_code lastError() {
    return {errno, std::generic_category()};
}

/// Removes a temporary again unless it was put in place.
class Temporary final {
  public:
    Temporary() = default;
    ~Temporary() {
        if (!m_path.empty())
            ::unlink(m_path.c_str());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    std::error_code Open(const fs::path& folder, mode_t mode) {
        for (int i = 0; i < mostNames; ++i) {
            const fs::path path = folder / MakeTemporaryName(ProcessMark::OfThisProcess());
            m_file = FileDescriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
            if (m_file.IsOpen()) {
                m_path = path;
                return {};
            }
            if (errno != EEXIST)
                break;
        }
        return lastError();
    }

    /// Writes everything to disk and closes.
    std::error_code Finish(const QByteArray& bytes) {
        for (qsizetype done = 0; done < bytes.size();) {
            const ssize_t written =
                ::write(m_file.Get(), bytes.constData() + done, static_cast<size_t>(bytes.size() - done));
            if (written < 0 && errno == EINTR)
                continue;
            if (written < 0)
                return lastError();
            if (written == 0)
                return std::make_error_code(std::errc::io_error);
            done += written;
        }
        if (::fsync(m_file.Get()) != 0 || !m_file.Close())
            return lastError();
        return {};
    }

    [[nodiscard]] int Descriptor() const { return m_file.Get(); }
    [[nodiscard]] const fs::path& Path() const { return m_path; }
    void Keep() { m_path.clear(); }

  private:
    fs::path m_path;
    FileDescriptor m_file;
};

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

/// What stands at the name now; nullopt with a clear error when nothing does.
std::optional<struct stat> look(const fs::path& file, std::error_code& error) {
    struct stat status {};
    if (::lstat(file.c_str(), &status) == 0)
        return status;
    if (errno != ENOENT)
        error = lastError();
    return std::nullopt;
}

std::error_code takeOver(const Temporary& temporary, const struct stat& old) {
    // The owner is kept as far as the system lets us: only root may give a file away.
    const bool ownerKept = ::fchown(temporary.Descriptor(), old.st_uid, old.st_gid) == 0;
    const mode_t allowed = ownerKept ? 07777 : 0777;
    return ::fchmod(temporary.Descriptor(), old.st_mode & allowed) == 0 ? std::error_code() : lastError();
}

} // namespace

fs::path AtomicFile::FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

std::error_code AtomicFile::SyncFolder(const fs::path& folder) {
    const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!descriptor.IsOpen())
        return lastError();
    if (::fsync(descriptor.Get()) == 0 || errno == EINVAL || errno == ENOTSUP)
        return {};
    return lastError();
}

std::error_code AtomicFile::Replace(const fs::path& file, const QByteArray& bytes, mode_t newMode) {
    fs::path target = file;
    std::error_code error = followLinks(target);
    if (error)
        return error;
    const auto old = look(target, error);
    if (error)
        return error;
    if (old && !S_ISREG(old->st_mode))
        return std::make_error_code(S_ISDIR(old->st_mode) ? std::errc::is_a_directory : std::errc::invalid_argument);
    if (old && ::access(target.c_str(), W_OK) != 0)
        return lastError();
    Temporary temporary;
    error = temporary.Open(FolderOf(target), old ? 0600 : newMode);
    if (!error && old)
        error = takeOver(temporary, *old);
    if (!error)
        error = temporary.Finish(bytes);
    if (error)
        return error;
    if (::rename(temporary.Path().c_str(), target.c_str()) != 0)
        return lastError();
    temporary.Keep();
    return SyncFolder(FolderOf(target));
}

std::error_code AtomicFile::Create(const fs::path& file, const QByteArray& bytes, mode_t newMode) {
    Temporary temporary;
    std::error_code error = temporary.Open(FolderOf(file), newMode);
    if (!error)
        error = temporary.Finish(bytes);
    if (!error)
        error = RenameToFreeName(temporary.Path(), file);
    if (error)
        return error;
    temporary.Keep();
    return {};
}

std::error_code AtomicFile::RenameToFreeName(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) != 0) {
        // Not every file system knows the flag; a hard link refuses a taken name as well.
        if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP)
            return lastError();
        if (::link(from.c_str(), to.c_str()) != 0 || ::unlink(from.c_str()) != 0)
            return lastError();
    }
    const std::error_code error = SyncFolder(FolderOf(to));
    return error || FolderOf(from) == FolderOf(to) ? error : SyncFolder(FolderOf(from));
}

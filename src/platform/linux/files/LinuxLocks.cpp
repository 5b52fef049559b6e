#include "LinuxServices.h"

#include "SystemCall.h"
#include <QByteArray>
#include <QCryptographicHash>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>

namespace {

bool isStillNamed(const FileDescriptor& folder, const QByteArray& name, const FileDescriptor& file) {
    struct stat held {};
    struct stat named {};
    return fstat(file.Get(), &held) == 0 && fstatat(folder.Get(), name.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

class LinuxHeldLock final : public HeldLock {
  public:
    LinuxHeldLock(FileDescriptor folder, QByteArray name, FileDescriptor file)
        : m_folder(std::move(folder)), m_name(std::move(name)), m_file(std::move(file)) {}

    /// Unlinks the file before the lock is released, so that the files do not pile up. A process that has the old file
    /// open notices, once it has locked it, that the name leads elsewhere, and tries again.
    ~LinuxHeldLock() override {
        if (isStillNamed(m_folder, m_name, m_file))
            unlinkat(m_folder.Get(), m_name.constData(), 0);
    }
    LinuxHeldLock(const LinuxHeldLock&) = delete;
    LinuxHeldLock& operator=(const LinuxHeldLock&) = delete;

  private:
    FileDescriptor m_folder;
    QByteArray m_name;
    FileDescriptor m_file;
};

/// Creates the folder when it is missing. It must belong to this user and be closed to all others: whoever can exchange
/// a lock file in it can make two processes hold the same lock.
FileDescriptor openPrivateFolder(const std::filesystem::path& path) {
    if (path.empty())
        return FileDescriptor();
    std::error_code ignored; // if the folder is still missing, the open below fails
    std::filesystem::create_directories(path.parent_path(), ignored);
    mkdir(path.c_str(), 0700);
    FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    if (!folder.IsOpen() || fstat(folder.Get(), &facts) != 0 || facts.st_uid != geteuid())
        return FileDescriptor();
    if ((facts.st_mode & 0777) != 0700 && fchmod(folder.Get(), 0700) != 0)
        return FileDescriptor();
    return folder;
}

/// Any text becomes one short file name.
QByteArray fileName(const QString& lockName) {
    return QCryptographicHash::hash(lockName.toUtf8(), QCryptographicHash::Sha256).toHex() + ".lock";
}

FileDescriptor openLockFile(const FileDescriptor& folder, const QByteArray& name) {
    FileDescriptor file(
        openat(folder.Get(), name.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600));
    struct stat facts {};
    if (!file.IsOpen() || fstat(file.Get(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return FileDescriptor();
    return file;
}

class LinuxLocks final : public Locks {
  public:
    explicit LinuxLocks(std::filesystem::path folder) : m_folder(std::move(folder)) {}

    std::unique_ptr<HeldLock> TryAcquire(const QString& name, LockRefusal& refusal) override;
    std::filesystem::path Place() const override { return m_folder; }

  private:
    std::filesystem::path m_folder; ///< empty: no lock can be made
};

std::unique_ptr<HeldLock> LinuxLocks::TryAcquire(const QString& name, LockRefusal& refusal) {
    refusal = LockRefusal::NoneCanBeMade;
    FileDescriptor folder = openPrivateFolder(m_folder);
    if (!folder.IsOpen())
        return nullptr;
    const QByteArray lockFile = fileName(name);
    // When the file loses its name between open and flock, the lock is worthless: retry.
    for (int attempt = 0; attempt < 10; ++attempt) {
        FileDescriptor file = openLockFile(folder, lockFile);
        if (!file.IsOpen())
            return nullptr;
        if (flock(file.Get(), LOCK_EX | LOCK_NB) != 0) {
            if (errno == EWOULDBLOCK)
                refusal = LockRefusal::HeldElsewhere;
            return nullptr;
        }
        if (isStillNamed(folder, lockFile, file))
            return std::make_unique<LinuxHeldLock>(std::move(folder), lockFile, std::move(file));
    }
    return nullptr;
}

} // namespace

std::unique_ptr<Locks> MakeLinuxLocks(std::filesystem::path stateHome) {
    return std::make_unique<LinuxLocks>(stateHome.empty() ? std::move(stateHome) : stateHome / "Kalvenor");
}

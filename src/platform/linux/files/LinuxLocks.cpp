#include "LinuxLocks.h"

#include "FileDescriptor.h"
#include "XdgFolders.h"
#include <QByteArray>
#include <QCryptographicHash>
#include <cerrno>
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

    /// The name goes while the lock is still held: whoever has the old file open sees, once it has locked it, that it
    /// is no longer the named one, and tries again. So names made of inode numbers do not pile up.
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

/// Our private folder, made when it is missing. It must be a folder of ours that nobody else can enter: whoever could
/// exchange a lock file in it could make two processes believe in the same lock.
FileDescriptor openPrivateFolder() {
    const auto base = XdgFolders::StateHome();
    if (base.empty())
        return FileDescriptor();
    std::error_code ignored; // a folder that is still missing shows itself in the open below
    std::filesystem::create_directories(base, ignored);
    const auto path = LinuxLocks().Place();
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

} // namespace

std::unique_ptr<HeldLock> LinuxLocks::TryAcquire(const QString& name, LockRefusal& refusal) {
    refusal = LockRefusal::NoneCanBeMade;
    FileDescriptor folder = openPrivateFolder();
    if (!folder.IsOpen())
        return nullptr;
    const QByteArray lockFile = fileName(name);
    // Should the file lose its name between open and lock, the lock is worth nothing and another try is due.
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

std::filesystem::path LinuxLocks::Place() const {
    const auto base = XdgFolders::StateHome();
    return base.empty() ? base : base / "Kalvenor";
}

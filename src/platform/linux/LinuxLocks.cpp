#include "LinuxLocks.h"

#include "FileDescriptor.h"
#include "XdgFolders.h"
#include <QByteArray>
#include <QCryptographicHash>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>

namespace {

class LinuxHeldLock final : public HeldLock {
  public:
    explicit LinuxHeldLock(FileDescriptor file) : m_file(std::move(file)) {}

  private:
    FileDescriptor m_file;
};

/// Our private folder, made when it is missing. It must be a folder of ours that nobody else can enter: whoever could
/// exchange a lock file in it could make two processes believe in the same lock.
FileDescriptor openPrivateFolder() {
    auto base = XdgFolders::RuntimeDir();
    if (base.empty()) {
        base = XdgFolders::StateHome();
        std::error_code ignored; // a folder that is still missing shows itself in the open below
        std::filesystem::create_directories(base, ignored);
    }
    if (base.empty())
        return FileDescriptor();
    const auto path = base / "Kalvenor";
    mkdir(path.c_str(), 0700);
    FileDescriptor folder(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat facts {};
    if (!folder.IsOpen() || fstat(folder.Get(), &facts) != 0 || facts.st_uid != geteuid())
        return FileDescriptor();
    if ((facts.st_mode & 0777) != 0700 && fchmod(folder.Get(), 0700) != 0)
        return FileDescriptor();
    return folder;
}

bool isStillNamed(const FileDescriptor& folder, const char* name, const FileDescriptor& file) {
    struct stat held {};
    struct stat named {};
    return fstat(file.Get(), &held) == 0 && fstatat(folder.Get(), name, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

/// Any text becomes one short file name.
QByteArray fileName(const QString& lockName) {
    return QCryptographicHash::hash(lockName.toUtf8(), QCryptographicHash::Sha256).toHex() + ".lock";
}

FileDescriptor openLockFile(const FileDescriptor& folder, const char* name) {
    FileDescriptor file(openat(folder.Get(), name, O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600));
    struct stat facts {};
    if (!file.IsOpen() || fstat(file.Get(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return FileDescriptor();
    // The sticky bit tells cleaners of the runtime folder to leave the file alone (XDG base directory specification).
    static_cast<void>(fchmod(file.Get(), S_ISVTX | 0600));
    return file;
}

} // namespace

std::unique_ptr<HeldLock> LinuxLocks::TryAcquire(const QString& name) {
    const FileDescriptor folder = openPrivateFolder();
    if (!folder.IsOpen())
        return nullptr;
    const QByteArray lockFile = fileName(name);
    // The file is never deleted, by us: a waiting process could hold the old one while a third makes a new one. Should
    // anybody else have deleted it between open and lock, the lock is worth nothing and another try is due.
    for (int attempt = 0; attempt < 10; ++attempt) {
        FileDescriptor file = openLockFile(folder, lockFile.constData());
        if (!file.IsOpen() || flock(file.Get(), LOCK_EX | LOCK_NB) != 0)
            return nullptr;
        if (isStillNamed(folder, lockFile.constData(), file))
            return std::make_unique<LinuxHeldLock>(std::move(file));
    }
    return nullptr;
}

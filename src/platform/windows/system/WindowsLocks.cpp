#include "Handle.h"
#include "WindowsServices.h"

#include <QCryptographicHash>

namespace {

/// The lock is that the named object exists; the system removes it with the last handle, also after a crash.
class WindowsHeldLock final : public HeldLock {
  public:
    explicit WindowsHeldLock(WinHandle mutex) : m_mutex(std::move(mutex)) {}

  private:
    WinHandle m_mutex;
};

/// One for the whole machine: the service and the window run in sessions of their own. Any text becomes one short name.
std::wstring objectName(const QString& lockName) {
    const QByteArray hash = QCryptographicHash::hash(lockName.toUtf8(), QCryptographicHash::Sha256).toHex();
    return L"Global\\Kalvenor-" + QString::fromLatin1(hash).toStdWString();
}

class WindowsLocks final : public Locks {
  public:
    explicit WindowsLocks(std::filesystem::path place) : m_place(std::move(place)) {}

    std::unique_ptr<HeldLock> TryAcquire(const QString& name, LockRefusal& refusal) override;
    std::filesystem::path Place() const override { return m_place; }

  private:
    std::filesystem::path m_place;
};

std::unique_ptr<HeldLock> WindowsLocks::TryAcquire(const QString& name, LockRefusal& refusal) {
    WinHandle mutex(CreateMutexW(nullptr, FALSE, objectName(name).c_str()));
    const DWORD result = GetLastError();
    if (mutex.IsOpen() && result != ERROR_ALREADY_EXISTS)
        return std::make_unique<WindowsHeldLock>(std::move(mutex));
    // One that another user has made exists, but must not be opened.
    const bool exists = mutex.IsOpen() || result == ERROR_ACCESS_DENIED;
    refusal = exists ? LockRefusal::HeldElsewhere : LockRefusal::NoneCanBeMade;
    return nullptr;
}

} // namespace

std::unique_ptr<Locks> MakeWindowsLocks(std::filesystem::path place) {
    return std::make_unique<WindowsLocks>(std::move(place));
}

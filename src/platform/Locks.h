// Named locks between the processes of one user. Owns nothing itself; a held lock is released by its destructor, and by
// the system when the process dies.
#pragma once

#include <QString>
#include <memory>

class HeldLock {
  public:
    virtual ~HeldLock() = default;
};

class Locks {
  public:
    virtual ~Locks() = default;

    /// Takes the lock without waiting. Null when another process (or another holder in this one) has it, or when no
    /// lock can be made at all: no lock means no permission. The name may hold any character.
    [[nodiscard]] virtual std::unique_ptr<HeldLock> TryAcquire(const QString& name) = 0;
};

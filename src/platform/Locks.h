// Named locks between the processes of one user. The destructor of a held lock releases it, and so does the system when
// the process dies.
#pragma once

#include <QString>
#include <filesystem>
#include <memory>

class HeldLock {
  public:
    virtual ~HeldLock() = default;
};

enum class LockRefusal {
    HeldElsewhere, ///< by another process, or by another holder in this one
    NoneCanBeMade  ///< the system refused: another process may hold it
};

class Locks {
  public:
    virtual ~Locks() = default;

    /// Takes the lock without waiting. Null with the reason in `refusal` when it is refused: without the lock
    /// the caller must not proceed. The name may hold any character.
    [[nodiscard]] virtual std::unique_ptr<HeldLock> TryAcquire(const QString& name, LockRefusal& refusal) = 0;

    /// The private state folder of the program, which holds the files of the locks; empty where there is none.
    [[nodiscard]] virtual std::filesystem::path Place() const = 0;
};

// Locks between the processes of one user: flock on a file in a private folder of the user's state folder, which is the
// same for every session and every service of the user. Owns nothing itself. Whatever goes wrong, nothing is acquired.
#pragma once

#include "Locks.h"

class LinuxLocks final : public Locks {
  public:
    [[nodiscard]] std::unique_ptr<HeldLock> TryAcquire(const QString& name, LockRefusal& refusal) override;
    std::filesystem::path Place() const override;
};

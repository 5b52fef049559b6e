// Locks between the processes of one user: flock on a file in a private folder of the user's runtime folder (else of
// the state folder). Owns nothing itself. Whatever goes wrong, the answer is "not acquired".
#pragma once

#include "Locks.h"

class LinuxLocks final : public Locks {
  public:
    [[nodiscard]] std::unique_ptr<HeldLock> TryAcquire(const QString& name) override;
};

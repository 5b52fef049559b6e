// Keeps a second copy of the program from starting beside the first. Owns the lock while the program runs.
#pragma once

#include "CommandLine.h"
#include "Locks.h"
#include <memory>

class Prompter;
class StringTable;

class SingleInstance final {
  public:
    /// Call it before anything is opened or written. Shows a box when another copy runs. A process of the service
    /// manager neither tests nor takes the lock: the user's own copy may run beside it.
    SingleInstance(Locks& locks, const CommandLine& commandLine, Prompter& prompter, const StringTable& texts);

    [[nodiscard]] bool MayRun() const { return m_mayRun; }

    /// One name per settings location; the locks themselves are per user.
    [[nodiscard]] static QString LockName();

  private:
    std::unique_ptr<HeldLock> m_lock;
    bool m_mayRun = false;
};

// The lock that keeps a second engine off an activity file: two would each move and mirror what the other just wrote.
// Shared inside this process, from its first holder to its last: monitoring, every run, an export. Never throws; where
// no lock is given, nothing may run.
#pragma once

#include "Locks.h"

#include <map>
#include <vector>

class OwnFiles;

class EngineLock final {
  public:
    /// The holder may work on the file it was taken for, even if another file is current by now.
    using Token = std::shared_ptr<const std::vector<std::shared_ptr<HeldLock>>>;

    EngineLock(Locks& locks, const OwnFiles& files) : m_locks(locks), m_files(files) {}

    /// Locks the file by its canonical path and by its identity, so that no other name of the file starts a second
    /// engine. What this process holds already is shared. Null with the reason when it is refused.
    ///
    /// A save gives the file a new identity: a long holder then takes another token beside its own.
    [[nodiscard]] Token Take(const QString& path, LockRefusal& refusal);

  private:
    [[nodiscard]] std::vector<QString> keysOf(const QString& path) const;

    Locks& m_locks;
    const OwnFiles& m_files;
    std::map<QString, std::weak_ptr<HeldLock>> m_held;
};

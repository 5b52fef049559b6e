#include "EngineLock.h"
#include "OwnFiles.h"
#include "modNativePath.h"

std::vector<QString> EngineLock::keysOf(const QString& path) const {
    std::error_code error;
    const std::filesystem::path file = modNativePath::FromText(path);
    const std::filesystem::path canonical = std::filesystem::weakly_canonical(file, error);
    std::vector<QString> keys{u"activity file " + modNativePath::ToText(error ? file : canonical)};
    if (const std::optional<FileStamp> stamp = m_files.Stamp(file))
        keys.push_back(QStringLiteral("activity file %1:%2").arg(stamp->id.device).arg(stamp->id.inode));
    return keys;
}

EngineLock::Token EngineLock::Take(const QString& path, LockRefusal& refusal) {
    std::erase_if(m_held, [](const auto& entry) { return entry.second.expired(); });
    auto taken = std::make_shared<std::vector<std::shared_ptr<HeldLock>>>();
    for (const QString& key : keysOf(path)) {
        std::shared_ptr<HeldLock> lock = m_held[key].lock();
        if (!lock)
            lock = m_locks.TryAcquire(key, refusal);
        if (!lock)
            return nullptr;
        m_held[key] = lock;
        taken->push_back(std::move(lock));
    }
    return taken;
}

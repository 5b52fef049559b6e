#include "CommitQueue.h"

#include <algorithm>
#include <sys/resource.h>

namespace {

constexpr rlim_t wantedDescriptors = 16384;
constexpr rlim_t mostInABatch = 2048;

/// Larger batches need fewer syncs, but every file in a batch holds a descriptor. The usual limit of 1024 protects
/// programs that use select(), which this one does not. It is raised, but not so far that programs started from here
/// suffer. Both batches together leave three quarters of it to the rest of the program.
std::size_t descriptorLimitOfABatch() {
    struct rlimit limit {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return 8;
    const rlim_t wanted = std::min(limit.rlim_max, wantedDescriptors);
    if (limit.rlim_cur < wanted) {
        const struct rlimit raised { wanted, limit.rlim_max };
        if (::setrlimit(RLIMIT_NOFILE, &raised) == 0)
            limit.rlim_cur = wanted;
    }
    return static_cast<std::size_t>(std::clamp<rlim_t>(limit.rlim_cur / 8, 8, mostInABatch));
}

} // namespace

CommitQueue::CommitQueue(TransferObserver& observer, TemporaryFiles& temporaries)
    : m_observer(observer), m_temporaries(temporaries), m_descriptorLimit(descriptorLimitOfABatch()),
      m_filling(std::make_unique<TransferBatch>(m_sync, m_names, m_batches)) {}

bool CommitQueue::Holds(const FileId& folder, const std::filesystem::path& name) const {
    return m_filling->Holds(folder, name) || (m_syncing && m_syncing->Holds(folder, name));
}

void CommitQueue::turn() {
    finishSyncing();
    m_syncing = std::exchange(m_filling, std::make_unique<TransferBatch>(m_sync, m_names, ++m_batches));
    m_syncing->StartSync();
}

void CommitQueue::finishSyncing() {
    const std::shared_ptr<TransferBatch> batch = m_syncing;
    if (batch)
        batch->Finish(m_temporaries, m_observer);
    if (m_syncing == batch)
        m_syncing.reset();
}

void CommitQueue::Flush() {
    finishSyncing();
    if (m_filling->IsEmpty())
        return;
    turn();
    finishSyncing();
}

void CommitQueue::Commit() {
    Flush();
    if (m_names.IsEmpty())
        return;
    const PlacedNames names = std::exchange(m_names, {});
    std::vector<PlacedNames::Failure> failures;
    BackgroundTask task;
    task.Start([&] { failures = names.Sync(); });
    task.Wait(m_observer);
    for (const PlacedNames::Failure& failure : failures)
        m_observer.Failed(failure.folder, failure.error);
}

#include "CommitQueue.h"

#include <algorithm>
#include <sys/resource.h>

namespace {

constexpr rlim_t kWantedDescriptors = 16384;
constexpr rlim_t kMostInABatch = 2048;

/// The larger a batch, the fewer syncs, and every file in it holds a descriptor. The usual limit of 1024 is for
/// programs that use select(), which this one does not; it goes up as far as is allowed, but not so far that the
/// programs started from here would notice. Both batches together leave three quarters to the rest of the program.
std::size_t descriptorLimitOfABatch() {
    struct rlimit limit {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        return 8;
    const rlim_t wanted = std::min(limit.rlim_max, kWantedDescriptors);
    if (limit.rlim_cur < wanted) {
        const struct rlimit raised { wanted, limit.rlim_max };
        if (::setrlimit(RLIMIT_NOFILE, &raised) == 0)
            limit.rlim_cur = wanted;
    }
    return static_cast<std::size_t>(std::clamp<rlim_t>(limit.rlim_cur / 8, 8, kMostInABatch));
}

} // namespace

CommitQueue::CommitQueue(TransferObserver& observer, TemporaryFiles& temporaries)
    : m_observer(observer), m_temporaries(temporaries), m_descriptorLimit(descriptorLimitOfABatch()),
      m_filling(std::make_unique<TransferBatch>()) {}

bool CommitQueue::Holds(const FileId& folder, const std::filesystem::path& name) const {
    return m_filling->Holds(folder, name) || (m_syncing && m_syncing->Holds(folder, name));
}

void CommitQueue::turn() {
    finishSyncing();
    m_syncing = std::exchange(m_filling, std::make_unique<TransferBatch>());
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

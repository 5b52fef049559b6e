#include "CommitQueue.h"

#include <algorithm>
#include <sys/resource.h>

namespace {

/// Half of what the process may open stays free for the rest of the program and the depth of the walk. The limit itself
/// is left alone: programs started from here would inherit it.
std::size_t descriptorLimitOfABatch() {
    struct rlimit limit {};
    const rlim_t all = ::getrlimit(RLIMIT_NOFILE, &limit) == 0 ? limit.rlim_cur : 256;
    return static_cast<std::size_t>(std::clamp<rlim_t>(all / 4, 8, 256));
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
    if (m_syncing)
        m_syncing->Finish(m_temporaries, m_observer);
    m_syncing.reset();
}

void CommitQueue::Flush() {
    finishSyncing();
    if (m_filling->IsEmpty())
        return;
    turn();
    finishSyncing();
}

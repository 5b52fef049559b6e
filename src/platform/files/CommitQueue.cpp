#include "CommitQueue.h"
#include "SystemFiles.h"

#include <utility>

CommitQueue::CommitQueue(TransferObserver& observer, TemporaryFiles& temporaries, Trash* trash)
    : m_observer(observer), m_temporaries(temporaries), m_trash(trash),
      m_descriptorLimit(SystemFiles::HandlesOfABatch()),
      m_filling(std::make_unique<TransferBatch>(m_sync, m_names, m_trash, m_batches)) {}

bool CommitQueue::Holds(const FileId& folder, const std::filesystem::path& name) const {
    return m_filling->Holds(folder, name) || (m_syncing && m_syncing->Holds(folder, name));
}

void CommitQueue::turn() {
    finishSyncing();
    m_syncing = std::exchange(m_filling, std::make_unique<TransferBatch>(m_sync, m_names, m_trash, ++m_batches));
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

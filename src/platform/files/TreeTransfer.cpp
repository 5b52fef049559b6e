#include "TreeTransfer.h"
#include "SourceRemoval.h"
#include "SystemFiles.h"

#include <algorithm>
#include <tuple>
#include <utility>

TreeTransfer::TreeTransfer(TransferObserver& observer, CommitQueue& queue,
                           std::function<void(const FileJob&)> transferFile, const std::set<FileId>& excluded,
                           bool removeSources)
    : m_observer(observer), m_queue(queue), m_transferFile(std::move(transferFile)), m_excluded(excluded),
      m_removeSources(removeSources) {}

void TreeTransfer::Run(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                       const FolderEntry& entry) {
    if (const std::error_code error = enter(source, destination, entry))
        m_observer.Failed(source->Path() / entry.name, error);
}

std::error_code TreeTransfer::enter(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                                    const FolderEntry& entry) {
    if (m_depth >= Folder::MostLevels)
        return ErrorOf(ELOOP);
    StagedFolder folder;
    std::error_code error;
    folder.source = open(*source, entry, error);
    if (!folder.source)
        return error;
    if (m_excluded.contains(folder.source->Id()) || m_made.contains(folder.source->Id()))
        return {};
    // List before creating anything: the new folder must not turn up in its own source.
    std::vector<FolderEntry> entries;
    if (const std::error_code listing = folder.source->List(entries))
        return listing;
    // Links first: in a move, what they lead to may be taken away from beside them.
    std::stable_partition(entries.begin(), entries.end(), [](const FolderEntry& each) { return each.facts.isLink; });
    if (const std::error_code reading = SystemFiles::ReadStatus(*folder.source, folder.status))
        return reading;
    bool isResumed = false;
    if (const std::error_code making = makeOrResume(*destination, entry.name, folder, isResumed))
        return making;
    m_made.insert(folder.destination->Id());
    const bool wasInResumed = std::exchange(m_isInResumed, isResumed);
    ++m_depth;
    const bool leftOutBefore = std::exchange(m_leavesOut, false);
    transferEntries(folder, entries, isResumed);
    --m_depth;
    m_isInResumed = wasInResumed;
    folder.sourceParent = source;
    folder.name = entry.name;
    folder.removeSource = m_removeSources;
    folder.isComplete = !m_isStopped && !m_leavesOut;
    m_leavesOut = m_leavesOut || leftOutBefore; // the folders above are not complete either
    m_queue.Add(std::move(folder));
    return {};
}

void TreeTransfer::transferEntries(const StagedFolder& folder, const std::vector<FolderEntry>& entries,
                                   bool isResumed) {
    for (const FolderEntry& entry : entries) {
        m_isStopped = m_isStopped || m_observer.StopRequested();
        if (m_isStopped)
            return;
        if (entry.facts.kind != EntryKind::File || !m_observer.LeavesOut(entry.facts)) {
            transferEntry(folder, entry, isResumed);
            continue;
        }
        m_observer.LeftOut(folder.source->Path() / entry.name);
        m_leavesOut = true;
    }
}

void TreeTransfer::transferEntry(const StagedFolder& folder, const FolderEntry& entry, bool isResumed) {
    if (entry.facts.kind == EntryKind::Unknown)
        return m_observer.Failed(folder.source->Path() / entry.name, entry.facts.error);
    if (entry.facts.kind == EntryKind::Folder && !m_excluded.contains(entry.facts.id))
        return Run(folder.source, folder.destination, entry);
    if (entry.facts.kind != EntryKind::File)
        return;
    const FileJob job{folder.source, folder.destination, entry.name, entry.facts, m_removeSources};
    std::error_code error;
    if (!isResumed || !folder.destination->Stat(entry.name, error))
        m_transferFile(job);
    else if (m_removeSources) // it was placed before; if it differs, the rules decide
        std::ignore = RemoveSourceOfEqualFile(job, m_observer);
}

/// Staged files hold descriptors: flush them before giving up a folder for lack of one.
std::shared_ptr<Folder> TreeTransfer::open(const Folder& parent, const FolderEntry& entry, std::error_code& error) {
    auto folder = parent.OpenChild(entry, error);
    if (folder || m_queue.IsEmpty() ||
        (error != std::errc::too_many_files_open && error != std::errc::too_many_files_open_in_system))
        return folder;
    m_queue.Flush();
    return parent.OpenChild(entry, error);
}

std::error_code TreeTransfer::makeOrResume(const Folder& parent, const std::filesystem::path& name,
                                           StagedFolder& folder, bool& isResumed) {
    const std::error_code making = SystemFiles::MakeFolder(parent, name, folder.status);
    isResumed = static_cast<bool>(making);
    if (making && making != std::errc::file_exists)
        return making;
    std::error_code error;
    if (const std::optional<FileFacts> made = parent.Stat(name, error))
        folder.destination = open(parent, {name, *made}, error);
    else if (!error)
        error = ErrorOf(ENOENT);
    if (!folder.destination)
        return making ? making : error;
    if (isResumed && !folder.destination->RemoveLeftovers().isNewFolder && !m_isInResumed)
        return making;
    folder.mark = m_queue.MarkNew(folder.destination);
    folder.destination->ForgetUnfinished();
    return {};
}

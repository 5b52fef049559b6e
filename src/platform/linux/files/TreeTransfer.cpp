#include "TreeTransfer.h"
#include "LinuxFolder.h"
#include "SystemCall.h"

#include <fcntl.h>

namespace {

constexpr mode_t ownerMayFill = 0700;
constexpr mode_t groupBits = 0070;

} // namespace

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
    folder.source = open(*source, entry.name, error);
    if (!folder.source)
        return error;
    if (folder.source->Id() != entry.facts.id)
        return ErrorOf(EAGAIN);
    if (m_excluded.contains(folder.source->Id()) || m_made.contains(folder.source->Id()))
        return {};
    // List before creating anything: the new folder must not turn up in its own source.
    std::vector<FolderEntry> entries;
    if (const std::error_code listing = folder.source->List(entries))
        return listing;
    if (::fstat(folder.source->Descriptor(), &folder.status) != 0)
        return LastError();
    folder.destination = make(*destination, entry.name, folder.status.st_mode, error);
    if (!folder.destination)
        return error;
    m_made.insert(folder.destination->Id());
    ++m_depth;
    transferEntries(folder.source, folder.destination, entries);
    --m_depth;
    folder.sourceParent = source;
    folder.name = entry.name;
    folder.removeSource = m_removeSources;
    m_queue.Add(std::move(folder));
    return {};
}

void TreeTransfer::transferEntries(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                                   const std::vector<FolderEntry>& entries) {
    for (const FolderEntry& entry : entries) {
        if (m_observer.StopRequested())
            return;
        if (entry.facts.kind == EntryKind::Unknown)
            m_observer.Failed(source->Path() / entry.name, entry.facts.error);
        else if (entry.facts.kind == EntryKind::File)
            m_transferFile({source, destination, entry.name, entry.facts, m_removeSources});
        else if (entry.facts.kind == EntryKind::Folder && !m_excluded.contains(entry.facts.id))
            Run(source, destination, entry);
    }
}

/// Staged files hold descriptors: flush them before giving up a folder for lack of one.
std::shared_ptr<Folder> TreeTransfer::open(const Folder& parent, const std::filesystem::path& name,
                                           std::error_code& error) {
    auto folder = LinuxFolder::Open(parent.Descriptor(), name.c_str(), parent.Path() / name, false, error);
    if (folder || m_queue.IsEmpty() || (error != ErrorOf(EMFILE) && error != ErrorOf(ENFILE)))
        return folder;
    m_queue.Flush();
    return LinuxFolder::Open(parent.Descriptor(), name.c_str(), parent.Path() / name, false, error);
}

std::shared_ptr<Folder> TreeTransfer::make(const Folder& parent, const std::filesystem::path& name, mode_t mode,
                                           std::error_code& error) {
    // Never more permissive than the source, not even for a moment, but its owner must be able to fill it. Until the
    // folder gets its attributes its group may differ from the source's, so the group gets nothing.
    if (::mkdirat(parent.Descriptor(), name.c_str(), (mode & 0777U & ~groupBits) | ownerMayFill) != 0) {
        error = LastError();
        return nullptr;
    }
    return open(parent, name, error);
}

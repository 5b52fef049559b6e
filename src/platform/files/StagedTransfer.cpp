#include "StagedTransfer.h"
#include "SourceRemoval.h"
#include "SystemFiles.h"
#include "TreeTransfer.h"

#include <algorithm>
#include <tuple>

StagedTransfer::StagedTransfer(TransferObserver& observer, Trash* trash)
    : m_observer(observer), m_trash(trash), m_stager(observer, m_temporaries), m_queue(observer, m_temporaries, trash) {
}

bool StagedTransfer::checkFile(const TransferFile& file, FileJob& job) {
    job = {file.source, file.destination, file.name, file.facts, false, file.replaced};
    if (SystemFiles::IsUsable(job.source) && SystemFiles::IsUsable(job.destination) &&
        SystemFiles::IsPlainName(file.name) && file.facts.kind == EntryKind::File)
        return true;
    m_observer.Failed(file.source ? file.source->Path() / file.name : file.name, ErrorOf(EINVAL));
    return false;
}

bool StagedTransfer::Copy(const TransferFile& file) {
    FileJob job;
    return checkFile(file, job) && stage(job);
}

bool StagedTransfer::stage(const FileJob& job) {
    StagedFile staged;
    staged.batch = m_queue.WillWrite(*job.destination);
    std::error_code error = m_stager.Stage(job, staged);
    if (SystemFiles::MayPassAfterCommit(error) && !m_queue.IsEmpty()) {
        m_queue.Flush();
        staged.batch = m_queue.WillWrite(*job.destination);
        error = m_stager.Stage(job, staged);
    }
    if (error) {
        m_observer.Failed(job.SourcePath(), error);
        return false;
    }
    m_queue.Add(std::move(staged));
    m_observer.Transferred();
    return true;
}

bool StagedTransfer::Move(const TransferFile& file) {
    FileJob job;
    if (!checkFile(file, job))
        return false;
    job.removeSource = true;
    return move(job);
}

bool StagedTransfer::CompleteMove(const TransferFile& file) {
    FileJob job;
    return checkFile(file, job) && RemoveSourceOfEqualFile(job, m_observer);
}

bool StagedTransfer::move(const FileJob& job) {
    bool isElsewhere = job.facts.isLink || m_apart.contains({job.source->Id().device, job.destination->Id().device});
    std::error_code error;
    if (!isElsewhere)
        error = moveByRename(job, isElsewhere);
    if (isElsewhere)
        return stage(job); // a link: copies the file it leads to, removes the link only
    if (error) {
        m_observer.Failed(job.SourcePath(), error);
        return false;
    }
    m_queue.WasRenamed(job.destination);
    m_observer.Transferred();
    return true;
}

std::error_code StagedTransfer::moveByRename(const FileJob& job, bool& isElsewhere) {
    // A staged copy with this name would later replace the file that is moved now.
    if (m_queue.Holds(job.destination->Id(), job.name))
        m_queue.Flush();
    EntryStatus status{};
    if (const std::error_code error = SystemFiles::ReadStatus(*job.source, job.name, status))
        return error;
    if (!SystemFiles::IsUnchanged(job.facts, status))
        return ErrorOf(EAGAIN);
    std::error_code error = SystemFiles::RenameToFreeName(*job.source, job.name, *job.destination, job.name);
    if (error == std::errc::file_exists) {
        DestinationState state{};
        error = CheckDestination(job, state);
        if (error || state == DestinationState::IsSource)
            return error;
        error = renameOver(job);
    }
    isElsewhere = SystemFiles::NeedsCopy(error, EntryKind::File);
    if (error == std::errc::cross_device_link)
        m_apart.emplace(job.source->Id().device, job.destination->Id().device);
    return error;
}

std::error_code StagedTransfer::renameOver(const FileJob& job) {
    Trash::KeptFile kept;
    std::error_code error = KeepReplaced(m_trash, job, kept);
    if (!error && kept.folder)
        error = m_trash->Sync();
    if (!error)
        error = SystemFiles::RenameOver(*job.source, job.name, *job.destination);
    if (error)
        Trash::PutBack(*job.destination, job.name, kept);
    return error;
}

bool StagedTransfer::checkTree(const Tree& tree, const std::set<FileId>& excluded) {
    std::error_code error = ErrorOf(EINVAL);
    std::optional<FileFacts> facts;
    if (SystemFiles::IsUsable(tree.source) && SystemFiles::IsUsable(tree.destination) &&
        SystemFiles::IsPlainName(tree.entry.name))
        facts = tree.source->Stat(tree.entry.name, error);
    if (facts && facts->kind == EntryKind::Folder && excluded.contains(facts->id))
        return false;
    if (!facts && !error)
        error = ErrorOf(ENOENT);
    if (facts && facts->kind != EntryKind::Folder)
        error = ErrorOf(ENOTDIR);
    else if (facts && facts->id != tree.entry.facts.id)
        error = ErrorOf(EAGAIN);
    if (!error) {
        // Transferred into itself or below, it would never end.
        const std::vector<FileId> above = tree.destination->Ancestors();
        if (std::find(above.begin(), above.end(), facts->id) == above.end())
            return true;
        error = ErrorOf(EINVAL);
    }
    m_observer.Failed(tree.source ? tree.source->Path() / tree.entry.name : tree.entry.name, error);
    return false;
}

void StagedTransfer::CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                              const FolderEntry& entry, const std::set<FileId>& excluded) {
    const Tree tree{source, destination, entry}; // events may run: the caller's values may change
    if (!checkTree(tree, excluded))
        return;
    TreeTransfer transfer(
        m_observer, m_queue, [this](const FileJob& job) { std::ignore = stage(job); }, excluded, false);
    transfer.Run(tree.source, tree.destination, tree.entry);
}

/// One rename takes everything along. That is safe, because callers exclude every folder above an excluded one too.
/// False when the tree has to be moved file by file.
bool StagedTransfer::moveByRename(const Tree& tree) {
    const std::error_code error =
        SystemFiles::RenameToFreeName(*tree.source, tree.entry.name, *tree.destination, tree.entry.name);
    // A folder that exists may be one that an earlier run has left unfinished.
    if (SystemFiles::NeedsCopy(error, EntryKind::Folder) || error == std::errc::file_exists)
        return false;
    if (error) {
        m_observer.Failed(tree.source->Path() / tree.entry.name, error);
        return true;
    }
    m_queue.WasRenamed(tree.destination);
    m_observer.Transferred();
    return true;
}

void StagedTransfer::MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                              const FolderEntry& entry, const std::set<FileId>& excluded) {
    const Tree tree{source, destination, entry}; // events may run: the caller's values may change
    if (!checkTree(tree, excluded))
        return;
    if (!m_observer.MayLeaveOut() && moveByRename(tree))
        return;
    TreeTransfer transfer(
        m_observer, m_queue, [this](const FileJob& job) { std::ignore = move(job); }, excluded, true);
    transfer.Run(tree.source, tree.destination, tree.entry);
}

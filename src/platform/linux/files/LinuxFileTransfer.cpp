#include "LinuxFileTransfer.h"
#include "Destination.h"
#include "EntryFacts.h"
#include "SystemError.h"
#include "TreeTransfer.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

namespace {

/// The system writes changed bytes to disk within a minute; a file that rests longer is there already.
constexpr std::time_t kSettled = 120;

/// Placing what is staged gives these back: the room of replaced files, descriptors.
bool mayPassAfterCommit(const std::error_code& error) {
    return error == ErrorOf(ENOSPC) || error == ErrorOf(EDQUOT) || error == ErrorOf(EMFILE) || error == ErrorOf(ENFILE);
}

/// Across devices, and for what is a mount of its own.
bool needsCopy(const std::error_code& error) {
    return error == ErrorOf(EXDEV) || error == ErrorOf(EBUSY);
}

bool mayBeUnwritten(const struct stat& status) {
    return std::max(status.st_mtim.tv_sec, status.st_ctim.tv_sec) > std::time(nullptr) - kSettled;
}

/// Before a file takes the place of another one: after a power cut the old bytes would be gone and the new ones too.
std::error_code bringToDisk(const FileJob& job) {
    const FileDescriptor file(
        ::openat(job.source->Descriptor(), job.name.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    if (!file.IsOpen())
        return {}; // not readable for us: a rename is allowed all the same
    return ::fdatasync(file.Get()) == 0 || errno == EINVAL ? std::error_code() : LastError();
}

} // namespace

LinuxFileTransfer::LinuxFileTransfer(TransferObserver& observer)
    : m_observer(observer), m_stager(observer, m_temporaries), m_queue(observer, m_temporaries) {}

bool LinuxFileTransfer::checkFile(const TransferFile& file, FileJob& job) {
    job = {std::dynamic_pointer_cast<LinuxFolder>(file.source),
           std::dynamic_pointer_cast<LinuxFolder>(file.destination),
           file.name,
           file.facts,
           false,
           file.replaced};
    if (job.source && job.destination && LinuxFolder::IsPlainName(file.name) && file.facts.kind == EntryKind::File)
        return true;
    m_observer.Failed(file.source ? file.source->Path() / file.name : file.name, ErrorOf(EINVAL));
    return false;
}

bool LinuxFileTransfer::Copy(const TransferFile& file) {
    FileJob job;
    return checkFile(file, job) && stage(job);
}

bool LinuxFileTransfer::stage(const FileJob& job) {
    StagedFile staged;
    std::error_code error = m_stager.Stage(job, staged);
    if (mayPassAfterCommit(error) && !m_queue.IsEmpty()) {
        m_queue.Flush();
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

bool LinuxFileTransfer::Move(const TransferFile& file) {
    FileJob job;
    if (!checkFile(file, job))
        return false;
    job.removeSource = true;
    return move(job);
}

bool LinuxFileTransfer::move(const FileJob& job) {
    bool isElsewhere = job.facts.isLink || m_apart.contains({job.source->Id().device, job.destination->Id().device});
    std::error_code error;
    if (!isElsewhere)
        error = moveByRename(job, isElsewhere);
    if (isElsewhere)
        return stage(job); // a link is read as the file it leads to, and only the link goes
    if (error)
        m_observer.Failed(job.SourcePath(), error);
    else
        m_observer.Transferred();
    return !error;
}

std::error_code LinuxFileTransfer::moveByRename(const FileJob& job, bool& isElsewhere) {
    // A copy that still waits under this name would come later and replace what is moved now.
    if (m_queue.Holds(job.destination->Id(), job.name))
        m_queue.Flush();
    struct stat status {};
    if (::fstatat(job.source->Descriptor(), job.name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return LastError();
    if (!IsUnchanged(job.facts, status))
        return ErrorOf(EAGAIN);
    std::error_code error = RenameToFreeName(*job.source, job.name.c_str(), *job.destination, job.name);
    if (error == ErrorOf(EEXIST)) {
        DestinationState state{};
        error = CheckDestination(job, state);
        if (error || state == DestinationState::IsSource)
            return error;
        error = mayBeUnwritten(status) ? bringToDisk(job) : std::error_code();
        if (!error && ::renameat(job.source->Descriptor(), job.name.c_str(), job.destination->Descriptor(),
                                 job.name.c_str()) != 0)
            error = LastError();
    }
    isElsewhere = needsCopy(error);
    if (error == ErrorOf(EXDEV))
        m_apart.emplace(job.source->Id().device, job.destination->Id().device);
    return error;
}

bool LinuxFileTransfer::checkTree(const Tree& tree, const std::set<FileId>& excluded) {
    std::error_code error = ErrorOf(EINVAL);
    std::optional<FileFacts> facts;
    if (tree.source && tree.destination && LinuxFolder::IsPlainName(tree.entry.name))
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
        // Into itself, or below itself, it would never end.
        const std::vector<FileId> above = tree.destination->Ancestors();
        if (std::find(above.begin(), above.end(), facts->id) == above.end())
            return true;
        error = ErrorOf(EINVAL);
    }
    m_observer.Failed(tree.source ? tree.source->Path() / tree.entry.name : tree.entry.name, error);
    return false;
}

void LinuxFileTransfer::CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                                 const FolderEntry& entry, const std::set<FileId>& excluded) {
    const Tree tree{std::dynamic_pointer_cast<LinuxFolder>(source), std::dynamic_pointer_cast<LinuxFolder>(destination),
                    entry};
    if (!checkTree(tree, excluded))
        return;
    TreeTransfer transfer(
        m_observer, m_queue, [this](const FileJob& job) { static_cast<void>(stage(job)); }, excluded, false);
    transfer.Run(tree.source, tree.destination, tree.entry);
}

void LinuxFileTransfer::MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                                 const FolderEntry& entry, const std::set<FileId>& excluded) {
    const Tree tree{std::dynamic_pointer_cast<LinuxFolder>(source), std::dynamic_pointer_cast<LinuxFolder>(destination),
                    entry};
    if (!checkTree(tree, excluded))
        return;
    // One rename takes everything along. The folders left out are those on the way up from a root: had this one such a
    // folder in it, it would be left out itself.
    const std::error_code error = RenameToFreeName(*tree.source, entry.name.c_str(), *tree.destination, entry.name);
    if (!error)
        return;
    if (!needsCopy(error)) {
        m_observer.Failed(tree.source->Path() / entry.name, error);
        return;
    }
    TreeTransfer transfer(
        m_observer, m_queue, [this](const FileJob& job) { static_cast<void>(move(job)); }, excluded, true);
    transfer.Run(tree.source, tree.destination, tree.entry);
}

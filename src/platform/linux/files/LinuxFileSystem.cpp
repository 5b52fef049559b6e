#include "CommitQueue.h"
#include "FileStager.h"
#include "LinuxFolder.h"
#include "LinuxServices.h"
#include "SourceRemoval.h"
#include "SystemCall.h"
#include "TreeTransfer.h"

#include <algorithm>
#include <fcntl.h>
#include <tuple>
#include <unistd.h>

namespace {

/// Placing the staged files frees descriptors and the space of replaced files.
bool mayPassAfterCommit(const std::error_code& error) {
    return error == ErrorOf(ENOSPC) || error == ErrorOf(EDQUOT) || error == ErrorOf(EMFILE) || error == ErrorOf(ENFILE);
}

/// EXDEV: across devices. EBUSY: a mount point.
bool needsCopy(const std::error_code& error) {
    return error == ErrorOf(EXDEV) || error == ErrorOf(EBUSY);
}

/// Of a file system whose folders are descriptors.
bool isUsable(const std::shared_ptr<Folder>& folder) {
    return folder && folder->Descriptor() >= 0;
}

/// Before a rename replaces a file: after a power cut both the old bytes and the new ones would be lost.
std::error_code bringToDisk(const FileJob& job) {
    const FileDescriptor file(
        ::openat(job.source->Descriptor(), job.name.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    if (!file.IsOpen())
        return {}; // a rename needs no read permission
    return ::fdatasync(file.Get()) == 0 || errno == EINVAL ? std::error_code() : LastError();
}

/// Stages files as unnamed or hidden temporaries, syncs them in batches, then names them.
class LinuxFileTransfer final : public FileTransfer {
  public:
    explicit LinuxFileTransfer(TransferObserver& observer);

    bool Copy(const TransferFile& file) override;
    bool Move(const TransferFile& file) override;
    bool CompleteMove(const TransferFile& file) override;
    void CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                  const FolderEntry& entry, const std::set<FileId>& excluded) override;
    void MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                  const FolderEntry& entry, const std::set<FileId>& excluded) override;
    void Commit() override { m_queue.Commit(); }

  private:
    struct Tree {
        std::shared_ptr<Folder> source;
        std::shared_ptr<Folder> destination;
        FolderEntry entry;
    };

    [[nodiscard]] bool checkFile(const TransferFile& file, FileJob& job);
    [[nodiscard]] bool checkTree(const Tree& tree, const std::set<FileId>& excluded);
    bool stage(const FileJob& job);
    bool move(const FileJob& job);
    [[nodiscard]] std::error_code moveByRename(const FileJob& job, bool& isElsewhere);

    TransferObserver& m_observer;
    TemporaryFiles m_temporaries;
    FileStager m_stager;
    std::set<std::pair<std::uint64_t, std::uint64_t>> m_apart; ///< device pairs for which rename() failed with EXDEV
    CommitQueue m_queue;                                       ///< last: its destructor uses the others
};

class LinuxFileSystem final : public FileSystem {
  public:
    std::shared_ptr<Folder> OpenFolder(const std::filesystem::path& path, std::error_code& error) override {
        if (path.empty() || path.native().find('\0') != std::string::npos) {
            error = ErrorOf(ENOENT);
            return nullptr;
        }
        const std::filesystem::path absolute = std::filesystem::absolute(path, error);
        return error ? nullptr
                     : LinuxFolder::Open(AT_FDCWD, absolute.c_str(), std::make_shared<FolderPlace>(absolute), true,
                                         error);
    }
    std::unique_ptr<FileTransfer> NewTransfer(TransferObserver& observer) override {
        return std::make_unique<LinuxFileTransfer>(observer);
    }
};

LinuxFileTransfer::LinuxFileTransfer(TransferObserver& observer)
    : m_observer(observer), m_stager(observer, m_temporaries), m_queue(observer, m_temporaries) {}

bool LinuxFileTransfer::checkFile(const TransferFile& file, FileJob& job) {
    job = {file.source, file.destination, file.name, file.facts, false, file.replaced};
    if (isUsable(job.source) && isUsable(job.destination) && LinuxFolder::IsPlainName(file.name) &&
        file.facts.kind == EntryKind::File)
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
    staged.batch = m_queue.WillWrite(*job.destination);
    std::error_code error = m_stager.Stage(job, staged);
    if (mayPassAfterCommit(error) && !m_queue.IsEmpty()) {
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

bool LinuxFileTransfer::Move(const TransferFile& file) {
    FileJob job;
    if (!checkFile(file, job))
        return false;
    job.removeSource = true;
    return move(job);
}

bool LinuxFileTransfer::CompleteMove(const TransferFile& file) {
    FileJob job;
    return checkFile(file, job) && RemoveSourceOfEqualFile(job, m_observer);
}

bool LinuxFileTransfer::move(const FileJob& job) {
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

std::error_code LinuxFileTransfer::moveByRename(const FileJob& job, bool& isElsewhere) {
    // A staged copy with this name would later replace the file that is moved now.
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
        error = bringToDisk(job);
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
    if (isUsable(tree.source) && isUsable(tree.destination) && LinuxFolder::IsPlainName(tree.entry.name))
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

void LinuxFileTransfer::CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                                 const FolderEntry& entry, const std::set<FileId>& excluded) {
    const Tree tree{source, destination, entry}; // events may run: the caller's values may change
    if (!checkTree(tree, excluded))
        return;
    TreeTransfer transfer(
        m_observer, m_queue, [this](const FileJob& job) { std::ignore = stage(job); }, excluded, false);
    transfer.Run(tree.source, tree.destination, tree.entry);
}

void LinuxFileTransfer::MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                                 const FolderEntry& entry, const std::set<FileId>& excluded) {
    const Tree tree{source, destination, entry}; // events may run: the caller's values may change
    if (!checkTree(tree, excluded))
        return;
    // One rename takes everything along. That is safe, because callers exclude every folder above an excluded one too.
    const std::error_code error =
        RenameToFreeName(*tree.source, tree.entry.name.c_str(), *tree.destination, tree.entry.name);
    if (!error)
        return m_queue.WasRenamed(tree.destination);
    // A folder that exists may be one that an earlier run has left unfinished.
    if (!needsCopy(error) && error != ErrorOf(EEXIST)) {
        m_observer.Failed(tree.source->Path() / tree.entry.name, error);
        return;
    }
    TreeTransfer transfer(
        m_observer, m_queue, [this](const FileJob& job) { std::ignore = move(job); }, excluded, true);
    transfer.Run(tree.source, tree.destination, tree.entry);
}

} // namespace

std::unique_ptr<FileSystem> MakeLinuxFileSystem() {
    return std::make_unique<LinuxFileSystem>();
}

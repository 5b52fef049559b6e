#include "TransferBatch.h"
#include "Attributes.h"
#include "SourceRemoval.h"

#include <algorithm>
#include <set>

namespace {

constexpr std::uint64_t byteLimit = std::uint64_t{128} * 1024 * 1024;

} // namespace

unsigned TransferBatch::WillWrite(const Folder& folder) {
    m_syncPoints.Open(folder);
    return m_number;
}

void TransferBatch::Add(StagedFile file) {
    file.syncAlone = file.batch != m_number;
    const bool sameFolders = !m_files.empty() && m_files.back().job.source == file.job.source &&
                             m_files.back().job.destination == file.job.destination;
    m_descriptors += sameFolders ? 1 : 3;
    m_bytes += file.job.facts.size;
    m_files.push_back(std::move(file));
}

void TransferBatch::Add(StagedFolder folder) {
    m_descriptors += 3;
    m_folders.push_back(std::move(folder));
}

bool TransferBatch::Holds(const FileId& folder, const std::filesystem::path& name) const {
    return std::any_of(m_files.begin(), m_files.end(), [&](const StagedFile& file) {
        return file.job.name.native() == name.native() && file.job.destination->Id() == folder;
    });
}

bool TransferBatch::IsFull(std::size_t descriptorLimit) const {
    return m_descriptors >= descriptorLimit || m_bytes >= byteLimit;
}

void TransferBatch::StartSync() {
    if (!m_files.empty())
        m_task.Start([this] { m_sync.SyncContents(m_files, m_syncPoints); });
}

void TransferBatch::Finish(TemporaryFiles& temporaries, TransferObserver& observer) {
    m_task.Wait(observer);
    if (m_stage == Stage::Contents) {
        m_stage = Stage::Keeping;
        keepReplaced();
    }
    m_task.Wait(observer);
    if (m_stage == Stage::Keeping) {
        m_stage = Stage::Names;
        place(temporaries, observer);
        startNames();
    }
    m_task.Wait(observer);
    if (m_stage == Stage::Names) {
        m_stage = Stage::Removing;
        finishNames(observer);
        removeSources(observer);
        m_stage = Stage::Removals;
    }
    m_task.Wait(observer);
    if (m_stage == Stage::Removals) {
        m_stage = Stage::Done;
        finishRemovals(observer);
        m_files.clear();
        m_marks.clear();
        m_removals = {};
        finishFolders(observer);
    }
}

/// The old files are safe on disk before a new one takes a name.
void TransferBatch::keepReplaced() {
    bool areKept = false;
    for (StagedFile& file : m_files) {
        if (!file.error)
            file.error = KeepReplaced(m_trash, file.job, file.kept);
        areKept = areKept || file.kept.folder;
    }
    if (areKept)
        m_task.Start([this] { m_keeping = m_trash->Sync(); });
}

void TransferBatch::place(TemporaryFiles& temporaries, TransferObserver& observer) {
    markMoves(temporaries);
    for (StagedFile& file : m_files) {
        if (!file.error && file.kept.folder)
            file.error = m_keeping;
        if (!file.error)
            file.error = temporaries.Place(file.copy, file.job, file.isPlaced);
        if (file.isPlaced)
            m_names.Add(file.job.destination);
        else
            Trash::PutBack(*file.job.destination, file.job.name, file.kept);
        if (file.error)
            observer.Failed(file.job.SourcePath(), file.error);
    }
}

/// From the first placed file to the last removed source, a file may be in both places.
void TransferBatch::markMoves(const TemporaryFiles& temporaries) {
    std::set<FileId> marked;
    for (const StagedFile& file : m_files) {
        if (!file.error && file.job.removeSource && marked.insert(file.job.destination->Id()).second)
            m_marks.push_back(temporaries.Mark(file.job.destination, TemporaryKind::Moves));
    }
}

/// Only for moves: before a source goes. All other names can wait for the end of the run.
void TransferBatch::startNames() {
    const auto losesSource = [](const StagedFile& file) { return file.isPlaced && file.job.removeSource; };
    if (std::any_of(m_files.begin(), m_files.end(), losesSource) ||
        std::any_of(m_folders.begin(), m_folders.end(), [](const StagedFolder& folder) { return folder.removeSource; }))
        m_task.Start([this] { m_sync.SyncNames(m_files, m_folders, m_syncPoints); });
}

void TransferBatch::finishNames(TransferObserver& observer) {
    for (StagedFile& file : m_files) {
        if (!file.isPlaced || !file.error)
            continue;
        observer.Failed(file.job.SourcePath(), file.error);
        file.job.removeSource = false;
    }
    for (StagedFolder& folder : m_folders) {
        if (!folder.error)
            continue;
        observer.Failed(folder.source->Path(), folder.error);
        folder.removeSource = false;
    }
}

void TransferBatch::removeSources(TransferObserver& observer) {
    for (const StagedFile& file : m_files) {
        if (!file.isPlaced || !file.job.removeSource)
            continue;
        if (const std::error_code error = RemoveSource(file, observer))
            observer.Failed(file.job.SourcePath(), error);
        else
            m_removals.Add(file.job.source);
    }
    if (!m_marks.empty())
        m_task.Start([this] { m_failedRemovals = m_removals.Sync(); });
}

/// Only now: a source that comes back in a power cut must find its mark, or no later run would remove it.
void TransferBatch::finishRemovals(TransferObserver& observer) {
    for (const PlacedNames::Failure& failure : m_failedRemovals)
        observer.Failed(failure.folder, failure.error);
    for (WorkMark& mark : m_marks)
        std::ignore = mark.Remove(); // the next run finds it where it looks anyway
}

void TransferBatch::finishFolders(TransferObserver& observer) {
    for (StagedFolder& folder : m_folders) {
        m_names.Add(folder.destination);
        if (!folder.isComplete) {
            folder.mark.Abandon();
            continue;
        }
        // A mark that stays keeps the folder in the source, or no later run would come by to remove it.
        std::error_code error = folder.mark.Remove();
        if (!error)
            error = Attributes::CopyToFolder(*folder.source, folder.status, *folder.destination);
        const std::filesystem::path path = folder.source->Path();
        folder.source.reset(); // an open folder may stay until it is closed, and its parent would not be empty
        if (!error && folder.removeSource)
            error = folder.sourceParent->DeleteEmptyFolder(folder.name);
        // Not empty: it holds entries that failed, which have been reported.
        if (error && error != std::errc::directory_not_empty)
            observer.Failed(path, error);
        folder = {};
    }
}

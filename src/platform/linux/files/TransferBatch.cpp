#include "TransferBatch.h"
#include "Attributes.h"
#include "LinuxFolder.h"
#include "SystemCall.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

namespace {

constexpr std::uint64_t byteLimit = std::uint64_t{128} * 1024 * 1024;
constexpr std::chrono::milliseconds progressInterval{50};

/// Checks the source once more: anything written to it after the copy would be lost.
std::error_code removeSource(const FileJob& job) {
    const int folder = job.source->Descriptor();
    struct stat entry {};
    struct stat content {};
    if (::fstatat(folder, job.name.c_str(), &entry, AT_SYMLINK_NOFOLLOW) != 0 ||
        ::fstatat(folder, job.name.c_str(), &content, 0) != 0)
        return LastError();
    if (S_ISLNK(entry.st_mode) != job.facts.isLink || !IsUnchanged(job.facts, content))
        return ErrorOf(EAGAIN);
    return ::unlinkat(folder, job.name.c_str(), 0) == 0 ? std::error_code() : LastError();
}

} // namespace

BackgroundTask::~BackgroundTask() {
    if (m_work.valid())
        m_work.wait();
}

void BackgroundTask::Start(const std::function<void()>& work) {
    // Signals are for the thread that runs the event loop.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        m_work = std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        m_work = {};
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (!m_work.valid())
        work();
}

void BackgroundTask::Wait(TransferObserver& observer) {
    while (m_work.valid() && m_work.wait_for(progressInterval) != std::future_status::ready)
        observer.Progress(0);
    if (m_work.valid())
        m_work.get();
}

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
        m_stage = Stage::Names;
        place(temporaries, observer);
        startNames();
    }
    m_task.Wait(observer);
    if (m_stage == Stage::Names) {
        m_stage = Stage::Done;
        finishNames(observer);
        removeSources(observer);
        finishFolders(observer);
    }
}

void TransferBatch::place(TemporaryFiles& temporaries, TransferObserver& observer) {
    for (StagedFile& file : m_files) {
        if (!file.error)
            file.error = temporaries.Place(file.copy, file.job, file.isPlaced);
        if (file.error)
            observer.Failed(file.job.SourcePath(), file.error);
    }
}

/// Only moves need it: a copy that loses its name in a power cut is made again by the next run.
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
        if (const std::error_code error = removeSource(file.job))
            observer.Failed(file.job.SourcePath(), error);
    }
}

void TransferBatch::finishFolders(TransferObserver& observer) {
    for (const StagedFolder& folder : m_folders) {
        std::error_code error =
            Attributes::CopyToFolder(folder.source->Descriptor(), folder.status, folder.destination->Descriptor());
        if (!error && folder.removeSource)
            error = folder.sourceParent->DeleteEmptyFolder(folder.name);
        // Not empty: it holds entries that failed, which have been reported.
        if (error && error != std::errc::directory_not_empty)
            observer.Failed(folder.source->Path(), error);
    }
}

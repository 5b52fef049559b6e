#include "KeptRuns.h"
#include "FileSystem.h"
#include "SystemFiles.h"
#include "TemporaryName.h"
#include "TrashFolders.h"
#include "TrashJournal.h"

#include <algorithm>
#include <tuple>

namespace {

/// Removes everything below; what fails stays with the folders above it.
void removeTree(Folder& parent, const FolderEntry& entry, TransferObserver& observer) {
    std::error_code error;
    std::shared_ptr<Folder> folder = parent.OpenChild(entry, error);
    if (folder && folder->Id().device != parent.Id().device) // somebody has mounted something there
        error = ErrorOf(EXDEV);
    std::vector<FolderEntry> entries;
    if (!error) {
        SystemFiles::MakeWritable(*folder);
        error = folder->List(entries);
    }
    if (error)
        return observer.Failed(parent.Path() / entry.name, error);
    for (const FolderEntry& inner : entries) {
        observer.Progress(0);
        if (observer.StopRequested())
            return;
        if (inner.facts.kind == EntryKind::Folder)
            removeTree(*folder, inner, observer);
        else if (error = folder->DeleteFile(inner); error)
            observer.Failed(folder->Path() / inner.name, error);
    }
    folder.reset(); // an open folder may stay until it is closed
    error = parent.DeleteEmptyFolder(entry.name);
    if (error && error != std::errc::directory_not_empty) // the failure inside has been told
        observer.Failed(parent.Path() / entry.name, error);
}

} // namespace

std::vector<KeptRun> KeptRuns::Of(const Folder& root) {
    std::vector<KeptRun> runs;
    std::error_code error;
    std::vector<FolderEntry> entries;
    const std::shared_ptr<Folder> trash = TrashFolders::Open(root, TrashName, error);
    if (!trash || trash->List(entries))
        return runs;
    for (const FolderEntry& entry : entries)
        if (entry.facts.kind == EntryKind::Folder)
            if (std::optional<KeptRun> run = TrashJournal::ReadRun(trash->Path() / entry.name))
                runs.push_back(std::move(*run));
    std::sort(runs.begin(), runs.end(), [](const KeptRun& a, const KeptRun& b) {
        return std::tie(a.began, a.name) > std::tie(b.began, b.name); // of the same second, the one with a number
    });
    return runs;
}

void KeptRuns::RemoveExpired(const std::shared_ptr<Folder>& root, std::chrono::sys_seconds now,
                             TransferObserver& observer) {
    std::error_code error;
    const std::shared_ptr<Folder> trash = TrashFolders::Open(*root, TrashName, error);
    if (!trash)
        return;
    for (const KeptRun& run : Of(*root)) {
        if (now < run.Until())
            continue;
        std::shared_ptr<Folder> folder = TrashFolders::Open(*trash, run.name, error);
        if (!folder)
            continue;
        if (const std::optional<FileFacts> files = folder->Stat(TrashJournal::FilesName, error))
            removeTree(*folder, {TrashJournal::FilesName, *files}, observer);
        // The journal goes last: without it, nothing would know that the rest has expired.
        if (!folder->Stat(TrashJournal::FilesName, error) && !error)
            TrashFolders::RemoveRun(*trash, std::move(folder), run.name);
    }
}

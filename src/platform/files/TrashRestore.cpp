#include "Attributes.h"
#include "KeptRuns.h"
#include "PlacedNames.h"
#include "SystemFiles.h"
#include "TemporaryName.h"
#include "TrashFolders.h"
#include "TrashJournal.h"

#include <map>
#include <tuple>

namespace {

using Lines = std::map<std::filesystem::path, JournalLine>;

class Restorer final {
  public:
    Restorer(Lines lines, Trash& trash, RestoreObserver& observer)
        : m_lines(std::move(lines)), m_trash(trash), m_observer(observer) {}

    /// `relative`: of both folders, the kept one and the one its files come back to.
    void Restore(const std::shared_ptr<Folder>& kept, const std::shared_ptr<Folder>& target,
                 const std::filesystem::path& relative);

    [[nodiscard]] std::error_code Sync() const {
        const std::vector<PlacedNames::Failure> failures = m_names.Sync();
        return failures.empty() ? std::error_code() : failures.front().error;
    }

  private:
    void restoreFolder(Folder& kept, const std::shared_ptr<Folder>& target, const FolderEntry& entry,
                       const std::filesystem::path& relative);
    void restoreFile(Folder& kept, const std::shared_ptr<Folder>& target, const FolderEntry& entry,
                     const JournalLine& line);
    [[nodiscard]] std::error_code makeRoom(Folder& target, const FolderEntry& present, const FileFacts& kept,
                                           const JournalLine& line, Trash::KeptFile& taken);

    Lines m_lines;
    Trash& m_trash;
    RestoreObserver& m_observer;
    PlacedNames m_names;
};

void Restorer::Restore(const std::shared_ptr<Folder>& kept, const std::shared_ptr<Folder>& target,
                       const std::filesystem::path& relative) {
    std::vector<FolderEntry> entries;
    if (const std::error_code error = kept->List(entries))
        return m_observer.NotRestored(kept->Path(), error);
    for (const FolderEntry& entry : entries) {
        m_observer.Progress();
        if (m_observer.StopRequested())
            return;
        const std::filesystem::path path = relative / entry.name;
        if (entry.facts.kind == EntryKind::Folder) {
            restoreFolder(*kept, target, entry, path);
        } else {
            const auto line = m_lines.find(path);
            restoreFile(*kept, target, entry, line != m_lines.end() ? line->second : JournalLine());
        }
    }
}

void Restorer::restoreFolder(Folder& kept, const std::shared_ptr<Folder>& target, const FolderEntry& entry,
                             const std::filesystem::path& relative) {
    const std::filesystem::path path = target->Path() / entry.name;
    std::error_code error;
    std::shared_ptr<Folder> from = kept.OpenChild(entry, error);
    EntryStatus status{};
    if (!error)
        error = SystemFiles::ReadStatus(*from, status);
    bool isNew = false;
    std::shared_ptr<Folder> to;
    if (!error)
        to = TrashFolders::OpenOrMake(*target, entry.name, status, isNew, error);
    if (to && to->Id().device != target->Id().device)
        error = ErrorOf(EXDEV);
    if (error)
        return m_observer.NotRestored(path, error);
    SystemFiles::MakeWritable(*from);
    Restore(from, to, relative);
    if (isNew) {
        error = Attributes::CopyToFolder(*from, status, *to);
        m_names.Add(target);
        error ? m_observer.NotRestored(path, error) : m_observer.Restored(path);
    }
    from.reset();                                     // an open folder may stay until it is closed
    std::ignore = kept.DeleteEmptyFolder(entry.name); // fails where something could not come back
}

void Restorer::restoreFile(Folder& kept, const std::shared_ptr<Folder>& target, const FolderEntry& entry,
                           const JournalLine& line) {
    const std::filesystem::path& name = line.name.empty() ? entry.name : line.name;
    std::error_code error;
    const std::optional<FileFacts> present = target->Stat(name, error);
    if (present && !present->isLink && present->id == entry.facts.id) { // it was kept, but not replaced any more
        std::ignore = kept.DeleteFile(entry);
        return;
    }
    Trash::KeptFile taken;
    if (present)
        error = makeRoom(*target, {name, *present}, entry.facts, line, taken);
    if (!error) {
        error = SystemFiles::RenameToFreeName(kept, entry.name, *target, name);
        if (error)
            Trash::PutBack(*target, name, taken);
    }
    if (error)
        return m_observer.NotRestored(target->Path() / name, error);
    m_names.Add(target);
    m_observer.Restored(target->Path() / name);
}

/// Takes away what the run had put there, and nothing else.
std::error_code Restorer::makeRoom(Folder& target, const FolderEntry& present, const FileFacts& kept,
                                   const JournalLine& line, Trash::KeptFile& taken) {
    const bool isOfTheRun = line.placed && present.facts.kind == EntryKind::File && !present.facts.isLink &&
                            m_observer.IsAsPlaced(present.facts, *line.placed);
    return isOfTheRun ? m_trash.Keep(target, present, kept, taken) : ErrorOf(EEXIST);
}

} // namespace

std::error_code KeptRuns::Restore(const std::shared_ptr<Folder>& root, const std::filesystem::path& run, Trash& trash,
                                  RestoreObserver& observer) {
    std::error_code error;
    const std::shared_ptr<Folder> all = TrashFolders::Open(*root, TrashName, error);
    std::shared_ptr<Folder> folder = all ? TrashFolders::Open(*all, run, error) : nullptr;
    std::shared_ptr<Folder> files = folder ? TrashFolders::Open(*folder, TrashJournal::FilesName, error) : nullptr;
    if (!files)
        return error;
    Restorer restorer(TrashJournal::ReadLines(folder->Path()), trash, observer);
    restorer.Restore(files, root, {});
    files.reset();
    if (!folder->DeleteEmptyFolder(TrashJournal::FilesName)) // else something is left there
        TrashFolders::RemoveRun(*all, std::move(folder), run);
    error = restorer.Sync();
    const std::error_code keeping = trash.Sync();
    return error ? error : keeping;
}

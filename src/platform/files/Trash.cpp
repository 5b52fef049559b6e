#include "Trash.h"
#include "Attributes.h"
#include "JournalFile.h"
#include "PlacedNames.h"
#include "SystemFiles.h"
#include "TemporaryName.h"
#include "TrashFolders.h"
#include "TrashJournal.h"

#include <string>
#include <tuple>

namespace {

constexpr int mostNames = 100;

/// The second entry of a name gets " (2)" and so on.
std::filesystem::path numbered(const std::filesystem::path& name, int number) {
    std::filesystem::path numberedName = name;
    if (number > 1)
        numberedName += " (" + std::to_string(number) + ")";
    return numberedName;
}

} // namespace

Trash::Trash(std::shared_ptr<Folder> root, KeptRun run)
    : m_root(std::move(root)), m_run(std::move(run)), m_names(std::make_unique<PlacedNames>()) {}

Trash::~Trash() = default;

std::filesystem::path Trash::Path() const {
    return m_path;
}

std::error_code Trash::begin() {
    if (m_files)
        return {};
    if (!SystemFiles::IsUsable(m_root))
        return ErrorOf(EINVAL);
    EntryStatus status{};
    if (const std::error_code error = SystemFiles::ReadStatus(*m_root, status))
        return error;
    bool isNew = false;
    std::error_code error;
    const std::shared_ptr<Folder> trash = TrashFolders::OpenOrMake(*m_root, TrashName, status, isNew, error);
    if (error)
        return error;
    if (isNew) {
        std::ignore = Attributes::CopyToFolder(*m_root, status, *trash);
        SystemFiles::Hide(*trash);
        m_names->Add(m_root);
    }
    if (trash->Id().device != m_root->Id().device)
        return ErrorOf(EXDEV);
    m_names->Add(trash);
    return makeRun(trash);
}

std::error_code Trash::makeRun(const std::shared_ptr<Folder>& trash) {
    EntryStatus status{};
    std::error_code error = SystemFiles::ReadStatus(*trash, status);
    std::filesystem::path name;
    for (int number = 1; !error && number <= mostNames; ++number) {
        name = numbered(m_run.name, number);
        error = SystemFiles::MakeFolder(*trash, name, status);
        if (error != std::errc::file_exists)
            break;
        error = number < mostNames ? std::error_code() : error;
    }
    if (error)
        return error;
    bool isNew = false;
    std::shared_ptr<Folder> files;
    std::shared_ptr<Folder> run = TrashFolders::OpenOrMake(*trash, name, status, isNew, error);
    auto journal = std::make_unique<JournalFile>();
    if (!error)
        error = journal->Create(*run, TrashJournal::FileName);
    if (!error)
        error = journal->Write(TrashJournal::Text(m_run).toStdString());
    if (!error)
        files = TrashFolders::OpenOrMake(*run, TrashJournal::FilesName, status, isNew, error);
    if (error) { // a full disk, say: every run would leave another one
        journal.reset();
        TrashFolders::RemoveRun(*trash, std::move(run), name);
        return error;
    }
    m_names->Add(run);
    m_journal = std::move(journal);
    m_path = run->Path();
    m_place = files;
    m_entered = ".";
    m_files = std::move(files);
    return {};
}

/// Makes `folder` the current place: its counterpart, with the folders above, gets the rights of the originals.
std::error_code Trash::enter(const Folder& folder) {
    if (const std::error_code error = begin())
        return error;
    if (folder.Id().device != m_root->Id().device)
        return ErrorOf(EXDEV);
    const std::filesystem::path relative = folder.Path().lexically_relative(m_root->Path());
    if (relative == m_entered)
        return {};
    std::shared_ptr<Folder> from = m_root;
    std::shared_ptr<Folder> to = m_files;
    std::error_code error;
    for (const std::filesystem::path& part : relative) {
        if (part == ".")
            continue;
        from = TrashFolders::Open(*from, part, error);
        EntryStatus status{};
        bool isNew = false;
        if (!error)
            error = SystemFiles::ReadStatus(*from, status);
        if (!error)
            to = TrashFolders::OpenOrMake(*to, part, status, isNew, error);
        if (error)
            return error;
    }
    if (from->Id() != folder.Id())
        return ErrorOf(EAGAIN);
    m_entered = relative;
    m_place = to;
    return {};
}

/// Finds a free name in the current place and writes the line.
std::error_code Trash::choose(const std::filesystem::path& name, JournalLine& line, KeptFile& kept) {
    for (int number = 1; number <= mostNames; ++number) {
        kept.name = numbered(name, number);
        std::error_code error;
        if (m_place->Stat(kept.name, error))
            continue;
        if (error)
            return error;
        kept.folder = m_place;
        line.kept = (m_entered / kept.name).lexically_normal();
        if (number > 1)
            line.name = name;
        error = m_journal->Write(TrashJournal::Text(line).toStdString());
        if (!error)
            m_names->Add(m_place);
        return error;
    }
    return ErrorOf(EEXIST);
}

std::error_code Trash::Keep(Folder& folder, const FolderEntry& entry, const std::optional<FileFacts>& placed,
                            KeptFile& kept) {
    if (entry.facts.kind == EntryKind::Folder)
        return keepFolder(folder, entry);
    std::error_code error;
    const std::optional<FileFacts> present = folder.Stat(entry.name, error);
    if (error || !present || !present->IsSameAs(entry.facts))
        return error ? error : ErrorOf(present ? EAGAIN : ENOENT);
    JournalLine line{.kept = {}, .name = {}, .placed = placed};
    KeptFile chosen;
    error = enter(folder);
    if (!error)
        error = choose(entry.name, line, chosen);
    if (!error)
        error = SystemFiles::RenameToFreeName(folder, entry.name, *chosen.folder, chosen.name);
    if (!error)
        kept = chosen;
    return error;
}

/// Its files have been kept one by one, so that only the folder itself is left to be made.
std::error_code Trash::keepFolder(Folder& parent, const FolderEntry& entry) {
    std::error_code error;
    std::shared_ptr<Folder> folder = parent.OpenChild(entry, error);
    EntryStatus status{};
    if (!error)
        error = SystemFiles::ReadStatus(*folder, status);
    if (!error)
        error = enter(*folder);
    if (!error)
        error = Attributes::CopyToFolder(*folder, status, *m_place);
    if (error)
        return error;
    m_names->Add(m_place);
    folder.reset(); // an open folder may stay until it is closed
    return parent.DeleteEmptyFolder(entry.name);
}

std::error_code Trash::KeepReplaced(const Folder& folder, const std::filesystem::path& name, const FileFacts& placed,
                                    KeptFile& kept) {
    JournalLine line{.kept = {}, .name = {}, .placed = placed};
    KeptFile chosen;
    std::error_code error = enter(folder);
    if (!error)
        error = choose(name, line, chosen);
    if (error)
        return error;
    chosen.isStillThere = !SystemFiles::LinkToFreeName(folder, name, *chosen.folder, chosen.name);
    if (!chosen.isStillThere)
        error = SystemFiles::RenameToFreeName(folder, name, *chosen.folder, chosen.name);
    if (!error)
        kept = chosen;
    return error;
}

void Trash::PutBack(const Folder& folder, const std::filesystem::path& name, const KeptFile& kept) {
    if (!kept.folder)
        return;
    if (kept.isStillThere)
        std::ignore = SystemFiles::RemoveMark(*kept.folder, kept.name);
    else
        std::ignore = SystemFiles::RenameToFreeName(*kept.folder, kept.name, folder, name);
}

std::error_code Trash::Sync() {
    if (!m_files)
        return {};
    if (const std::error_code error = m_journal->Sync())
        return error;
    const std::vector<PlacedNames::Failure> failures = std::exchange(*m_names, {}).Sync();
    return failures.empty() ? std::error_code() : failures.front().error;
}

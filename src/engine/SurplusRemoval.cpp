#include "SurplusRemoval.h"
#include "SyncRun.h"
#include "SyncTexts.h"
#include "modNativePath.h"

#include <tuple>

using modNativePath::ToText;

SurplusRemoval::SurplusRemoval(SyncRun& run, FolderPair& pair, const FolderEntry& entry)
    : m_run(run), m_pair(pair), m_entry(entry), m_lookedAt(run.Tools().interruptions.Count() - 1) {}

bool SurplusRemoval::mayDelete() {
    if (m_cameBack || !m_run.MayDelete())
        return false;
    if (m_lookedAt == m_run.Tools().interruptions.Count())
        return true;
    m_lookedAt = m_run.Tools().interruptions.Count();
    std::error_code error;
    m_cameBack = m_pair.source.Handle()->Stat(m_entry.name, error) || error;
    if (m_cameBack)
        m_run.Failed(m_pair.destination.Handle()->Path() / m_entry.name,
                     error ? error : std::make_error_code(std::errc::resource_unavailable_try_again));
    return !m_cameBack;
}

void SurplusRemoval::DeleteTree() {
    Folder& parent = *m_pair.destination.Handle();
    if (m_run.IsRootOrAbove(m_entry.facts.id) || !mayDelete())
        return;
    // With a filter most of the folder may stay, so each deleted file gets a line.
    if (!m_run.Filter().IsActive())
        m_run.Line(m_run.Tools().texts.DeletingFolder(ToText(parent.Path() / m_entry.name)));
    std::ignore = emptyFolder(parent, m_entry, 0);
}

std::shared_ptr<Folder> SurplusRemoval::open(Folder& parent, const FolderEntry& entry,
                                             std::vector<FolderEntry>& entries) {
    const auto path = [&] { return parent.Path() / entry.name; };
    std::error_code error;
    std::shared_ptr<Folder> folder = parent.OpenChild(entry, error);
    // Checked before listing: the files of another file system are not surplus of this tree.
    if (folder && !m_run.IsOnMount(*folder, parent.Mount()))
        return nullptr;
    if (folder && folder->Id().device != parent.Id().device) { // a subvolume
        m_run.LeaveAlone(ToText(path()), m_run.Tools().texts.OtherMount(ToText(path())));
        return nullptr;
    }
    if (folder)
        error = folder->List(entries);
    if (!error)
        return folder;
    m_run.Failed(path(), error);
    return nullptr;
}

bool SurplusRemoval::emptyFolder(Folder& parent, const FolderEntry& entry, int depth) {
    const auto path = [&] { return parent.Path() / entry.name; };
    if (depth > Folder::MostLevels) {
        m_run.Refuse(m_run.Tools().texts.TooDeep(ToText(path())), ToText(path()));
        return false;
    }
    std::vector<FolderEntry> entries;
    const std::shared_ptr<Folder> folder = open(parent, entry, entries);
    if (!folder || m_run.IsRootOrAbove(folder->Id()))
        return false;
    // Listings show none of the program's temporaries, and they would keep the folder from going.
    if (!m_run.IsPlanning()) {
        folder->RemoveLeftovers();
        folder->ForgetUnfinished();
    }
    bool isAllGone = true;
    for (const FolderEntry& inner : entries) {
        if (!mayDelete())
            return false;
        isAllGone = deleteEntry(*folder, inner, depth) && isAllGone;
        m_run.Progress(0);
    }
    if (!mayDelete() || (m_run.IsPlanning() ? !isAllGone : folder->List(entries) || !entries.empty()))
        return false;
    if (m_run.Filter().IsActive())
        m_run.Line(m_run.Tools().texts.DeletingFolder(ToText(path())));
    const std::error_code failed = m_run.Delete(parent, entry);
    if (failed)
        m_run.Failed(path(), failed);
    return !failed;
}

bool SurplusRemoval::deleteEntry(Folder& folder, const FolderEntry& entry, int depth) {
    switch (entry.facts.kind) {
    case EntryKind::Folder:
        return emptyFolder(folder, entry, depth + 1);
    case EntryKind::File:
        return deleteFile(folder, entry);
    case EntryKind::Unknown:
        m_run.Failed(folder.Path() / entry.name, entry.facts.error);
        return false;
    case EntryKind::FolderLink:
    case EntryKind::Special:
        break;
    }
    return false;
}

bool SurplusRemoval::deleteFile(Folder& folder, const FolderEntry& entry) {
    const std::filesystem::path path = folder.Path() / entry.name;
    if (m_run.Filter().IsActive() && !m_run.Filter().Passes(ToText(path)))
        return false;
    m_run.FoundAtDestination();
    if (m_run.IsOwnFile(entry.facts.id) || m_run.IsLog(entry.facts.id)) {
        m_run.LeaveAlone(ToText(path), m_run.Tools().texts.OwnFile(ToText(path)));
        return false;
    }
    if (m_run.IsBound() && !m_run.MayDo(Deletion(folder, entry)))
        return false;
    if (m_run.Filter().IsActive())
        m_run.Line(m_run.Tools().texts.DeletingFile(ToText(path)));
    const std::error_code error = m_run.Delete(folder, entry);
    if (error)
        m_run.Failed(path, error);
    return !error;
}

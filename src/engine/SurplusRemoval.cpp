#include "SurplusRemoval.h"
#include "ActivityFile.h"
#include "ActivityLogs.h"
#include "FileTypeFilter.h"
#include "RunContext.h"
#include "SyncTexts.h"
#include "modNativePath.h"

bool SurplusRemoval::MayDelete(RunContext& run) const {
    if (run.Over())
        return false;
    if (m_parts.file.Read(run.Name(), "action") == u"3" && run.SourceRoot()->StillThere())
        return true;
    run.End();
    return false;
}

void SurplusRemoval::DeleteFile(RunContext& run, Folder& folder, const std::filesystem::path& name) {
    if (!MayDelete(run))
        return;
    if (const std::error_code error = folder.DeleteFile(name))
        run.Failed(folder.Path() / name, error);
}

void SurplusRemoval::DeleteTree(RunContext& run, Folder& parent, const FolderEntry& entry,
                                const FileTypeFilter& filter) {
    if (run.IsProtected(entry.facts.id) || !MayDelete(run))
        return;
    // With a filter most of the folder may stay: then each file that goes is named.
    if (!filter.IsActive())
        m_parts.logs.WriteActionLine(run.Name(),
                                     m_parts.texts.DeletingFolder(modNativePath::ToText(parent.Path() / entry.name)));
    emptyFolder(run, parent, entry, filter, filter.IsActive());
}

void SurplusRemoval::emptyFolder(RunContext& run, Folder& parent, const FolderEntry& entry,
                                 const FileTypeFilter& filter, bool logFiles) {
    const std::filesystem::path path = parent.Path() / entry.name;
    std::error_code error;
    const std::shared_ptr<Folder> folder = parent.OpenChild(entry.name, error);
    std::vector<FolderEntry> entries;
    if (folder)
        error = folder->List(entries);
    if (error) {
        run.Failed(path, error);
        return;
    }
    // A folder that another file system is mounted on is not ours to empty.
    if (folder->Id().device != parent.Id().device || run.IsProtected(folder->Id()))
        return;
    folder->RemoveLeftovers(); // listings show none of them, and they would keep the folder from going
    for (const FolderEntry& inner : entries) {
        if (!MayDelete(run))
            return;
        if (inner.facts.kind == EntryKind::Folder) {
            emptyFolder(run, *folder, inner, filter, logFiles);
        } else if (inner.facts.kind == EntryKind::File &&
                   (!filter.IsActive() || filter.Passes(modNativePath::ToText(path / inner.name)))) {
            if (logFiles)
                m_parts.logs.WriteActionLine(run.Name(),
                                             m_parts.texts.DeletingFile(modNativePath::ToText(path / inner.name)));
            if (const std::error_code failed = folder->DeleteFile(inner.name))
                run.Failed(path / inner.name, failed);
        }
        run.Progress(0);
    }
    if (!MayDelete(run) || (folder->List(entries) || !entries.empty()))
        return;
    if (logFiles)
        m_parts.logs.WriteActionLine(run.Name(), m_parts.texts.DeletingFolder(modNativePath::ToText(path)));
    if (const std::error_code failed = parent.DeleteEmptyFolder(entry.name))
        run.Failed(path, failed);
}

#include "ActionExecution.h"
#include "ActivityLogs.h"
#include "Prompter.h"
#include "Reactions.h"
#include "RunContext.h"
#include "SafeExit.h"
#include "SurplusRemoval.h"
#include "SyncTexts.h"
#include "modDateCompare.h"
#include "modNativePath.h"

using modNativePath::ToText;

namespace {
QString pathIn(const FolderView& view, const std::filesystem::path& name) {
    return ToText(view.Handle()->Path() / name);
}

bool takesPart(RunContext& run, const FolderView& view, const FolderEntry& entry) {
    return entry.facts.kind == EntryKind::File &&
           (!run.Filter().IsActive() || run.Filter().Passes(pathIn(view, entry.name)));
}
} // namespace

void ActionExecution::AbortTest(RunContext& run) {
    if (!m_parts.safeExit.IsRequested())
        return;
    // What the log says was done must be done before the process ends.
    run.Transfer().Commit();
    run.End();
    m_parts.safeExit.End(m_parts.monitoring);
}

void ActionExecution::SyncFiles(RunContext& run, FolderPair& pair) {
    run.Yield();
    if (run.Over() || !listPair(run, pair))
        return;
    if (run.Rules().action == FileAction::Mirror)
        mirrorPass(run, pair);
    mainPass(run, pair);
}

bool ActionExecution::listPair(RunContext& run, FolderPair& pair) {
    const FileAction action = run.Rules().action;
    const bool mirror = action == FileAction::Mirror;
    if (action != FileAction::None)
        pair.destination.Handle()->RemoveLeftovers();
    if (const std::error_code error = pair.source.List()) {
        run.Failed(pair.source.Handle()->Path(), error);
        // Half a listing makes everything else look surplus.
        if (mirror)
            run.End();
        return false;
    }
    if (!mirror)
        return true;
    if (const std::error_code error = pair.destination.List()) {
        run.Failed(pair.destination.Handle()->Path(), error);
        run.End();
        return false;
    }
    return true;
}

void ActionExecution::mirrorPass(RunContext& run, FolderPair& pair) {
    for (const FolderEntry& entry : pair.destination.Entries()) {
        if (run.Over())
            return;
        if (!takesPart(run, pair.destination, entry))
            continue;
        const std::optional<FileFacts> destination = pair.destination.Facts(entry.name);
        const std::optional<FileFacts> source = pair.source.Facts(entry.name);
        if (!source) {
            syncSurplus(run, pair, entry.name);
        } else if (destination && source->kind == EntryKind::File && source->id != destination->id &&
                   modDateCompare::Compare(destination->modified, source->modified) < 0) {
            m_parts.reactions.ReactToChange(run.Name(), pathIn(pair.destination, entry.name));
            if (!run.Over())
                syncExisting(run, pair, entry.name, *source, *destination);
        }
        AbortTest(run);
        run.Progress(0);
    }
}

void ActionExecution::syncSurplus(RunContext& run, FolderPair& pair, const std::filesystem::path& name) {
    const QString path = pathIn(pair.destination, name);
    const bool reportOnly = run.Rules().action == FileAction::None;
    if (!reportOnly && !m_parts.surplus.MayDelete(run))
        return;
    m_parts.logs.WriteActionLine(run.Name(),
                                 reportOnly ? m_parts.texts.NoAction(path) : m_parts.texts.DeletingFile(path));
    m_parts.reactions.ReactToChange(run.Name(), path);
    if (!reportOnly)
        m_parts.surplus.DeleteFile(run, *pair.destination.Handle(), name);
}

void ActionExecution::mainPass(RunContext& run, FolderPair& pair) {
    for (const FolderEntry& entry : pair.source.Entries()) {
        if (run.Over())
            return;
        if (!takesPart(run, pair.source, entry))
            continue;
        const std::optional<FileFacts> source = pair.source.Facts(entry.name);
        if (!source || source->kind != EntryKind::File)
            continue;
        const std::optional<FileFacts> destination = pair.destination.Facts(entry.name);
        if (!destination)
            syncNew(run, pair, entry.name, *source);
        else if (destination->kind != EntryKind::File)
            run.Failed(pair.source.Handle()->Path() / entry.name,
                       std::make_error_code(destination->kind == EntryKind::Special ? std::errc::file_exists
                                                                                    : std::errc::is_a_directory));
        else if (destination->id != source->id)
            syncExisting(run, pair, entry.name, *source, *destination);
        AbortTest(run);
        run.Progress(0);
    }
}

void ActionExecution::syncExisting(RunContext& run, FolderPair& pair, const std::filesystem::path& name,
                                   const FileFacts& source, const FileFacts& destination) {
    const FileRules rules = run.Rules();
    const FileSide from{pathIn(pair.source, name), source};
    const FileSide to{pathIn(pair.destination, name), destination};
    FileDecision decision =
        SyncRules::DecideExisting(rules, modDateCompare::Compare(source.modified, destination.modified));
    if (decision == FileDecision::Ask) {
        const MessageAnswer answer = m_parts.prompter.Ask(m_parts.texts.OverwriteQuestion(from, to));
        ++run.State().eventsRan;
        if (run.Over())
            return;
        if (answer != MessageAnswer::Yes) {
            m_parts.logs.WriteActionLine(run.Name(), m_parts.texts.Declined(from.path));
            return;
        }
        decision = SyncRules::DecideAfterYes(rules);
    }
    switch (decision) {
    case FileDecision::ReportOnly:
        m_parts.logs.WriteActionLine(run.Name(), m_parts.texts.NoAction(from.path));
        return;
    case FileDecision::LeaveAlone:
        if (m_parts.logs.HasReader(run.Name()))
            m_parts.logs.WriteActionLine(run.Name(), m_parts.texts.NotNewer(from, to));
        return;
    case FileDecision::Ask:
    case FileDecision::Replace:
        break;
    }
    m_parts.reactions.ReactToChange(run.Name(), from.path);
    if (run.Over())
        return;
    m_parts.logs.WriteActionLine(run.Name(), m_parts.texts.Replacement(rules, from, to));
    transfer(run, pair, name, source, rules.action);
}

void ActionExecution::syncNew(RunContext& run, FolderPair& pair, const std::filesystem::path& name,
                              const FileFacts& source) {
    const QString path = pathIn(pair.source, name);
    m_parts.reactions.ReactToChange(run.Name(), path);
    if (run.Over())
        return;
    const FileAction action = run.Rules().action;
    if (action == FileAction::None) {
        m_parts.logs.WriteActionLine(run.Name(), m_parts.texts.NoAction(path));
        return;
    }
    if (m_parts.logs.HasReader(run.Name()))
        m_parts.logs.WriteActionLine(run.Name(),
                                     m_parts.texts.New(action, {path, source}, pathIn(pair.destination, name)));
    transfer(run, pair, name, source, action);
}

void ActionExecution::transfer(RunContext& run, FolderPair& pair, const std::filesystem::path& name,
                               const FileFacts& source, FileAction action) {
    const TransferFile file{pair.source.Handle(), pair.destination.Handle(), name, source};
    if (action == FileAction::Move)
        run.Transfer().Move(file);
    else
        run.Transfer().Copy(file);
    FileFacts placed = source;
    placed.id = {};
    placed.isLink = false;
    pair.destination.SetStaged(name, placed);
}

void ActionExecution::SyncFolders(RunContext& run, FolderPair& pair, const Walk& walk) {
    for (const FolderEntry& entry : pair.source.Entries()) {
        if (run.Over())
            return;
        if (entry.facts.kind != EntryKind::Folder || run.IsProtected(entry.facts.id))
            continue;
        syncFolder(run, pair, entry, walk);
        AbortTest(run);
    }
    if (!run.Over() && run.Rules().action == FileAction::Mirror)
        deleteSurplusFolders(run, pair);
}

void ActionExecution::syncFolder(RunContext& run, FolderPair& pair, const FolderEntry& entry, const Walk& walk) {
    const std::shared_ptr<Folder>& sourceParent = pair.source.Handle();
    const std::shared_ptr<Folder>& destinationParent = pair.destination.Handle();
    const std::filesystem::path path = sourceParent->Path() / entry.name;
    std::error_code error;
    const std::optional<FileFacts> destination = destinationParent->Stat(entry.name, error);
    if (error) {
        run.Failed(path, error);
    } else if (!destination) {
        m_parts.reactions.ReactToChange(run.Name(), ToText(path));
        if (run.Over())
            return;
        const FileAction action = run.Rules().action;
        if (action == FileAction::None) {
            m_parts.logs.WriteActionLine(run.Name(), m_parts.texts.NoAction(ToText(path)));
            return;
        }
        m_parts.logs.WriteActionLine(
            run.Name(), m_parts.texts.TransferringFolder(ToText(path), ToText(destinationParent->Path() / entry.name)));
        if (action == FileAction::Move)
            run.Transfer().MoveTree(sourceParent, destinationParent, entry.name, run.Protected());
        else
            run.Transfer().CopyTree(sourceParent, destinationParent, entry.name, run.Protected());
    } else if (destination->kind == EntryKind::Folder && destination->id != entry.facts.id) {
        const std::shared_ptr<Folder> from = sourceParent->OpenChild(entry.name, error);
        const std::shared_ptr<Folder> to = from ? destinationParent->OpenChild(entry.name, error) : nullptr;
        if (to)
            walk(run, from, to);
        else
            run.Failed(path, error);
    } else if (destination->kind == EntryKind::File || destination->kind == EntryKind::Special) {
        run.Failed(path, std::make_error_code(std::errc::not_a_directory));
    }
}

void ActionExecution::deleteSurplusFolders(RunContext& run, FolderPair& pair) {
    for (const FolderEntry& entry : pair.destination.Entries()) {
        if (run.Over())
            return;
        if (entry.facts.kind != EntryKind::Folder || pair.source.Has(entry.name) || pair.source.Facts(entry.name))
            continue;
        m_parts.surplus.DeleteTree(run, *pair.destination.Handle(), entry, run.Filter());
        AbortTest(run);
    }
}

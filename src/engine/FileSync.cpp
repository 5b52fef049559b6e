#include "FileSync.h"
#include "ActivityLogs.h"
#include "Prompter.h"
#include "RunFacts.h"
#include "SyncTexts.h"
#include "modDateCompare.h"

namespace {
std::error_code changedMeanwhile() {
    return std::make_error_code(std::errc::resource_unavailable_try_again);
}
} // namespace

void FileSync::Run() {
    if (!list())
        return;
    if (m_run.Rules().action == FileAction::Mirror)
        mirrorPass();
    mainPass();
    if (m_pair.hasUnfinishedMoves && !m_leavesOut && !m_run.Over())
        m_pair.destination.Handle()->ForgetUnfinished();
}

bool FileSync::list() {
    const bool mirror = m_run.Rules().action == FileAction::Mirror;
    std::vector<FolderView*> views{&m_pair.source};
    if (mirror)
        views.push_back(&m_pair.destination);
    for (FolderView* view : views) {
        if (const std::error_code error = view->List()) {
            m_run.Failed(view->Handle()->Path(), error);
            if (mirror)
                m_run.End(RunEnd::Unreadable);
            return false;
        }
    }
    if (mirror)
        m_pair.names.FindCounterparts();
    return true;
}

void FileSync::failed(const FolderView& view, const std::filesystem::path& name, std::error_code error) {
    m_run.Failed(view.Handle()->Path() / name, error);
}

bool FileSync::takesPart(FolderView& view, const FolderEntry& entry) {
    if (entry.facts.kind == EntryKind::Unknown)
        failed(view, entry.name, entry.facts.error);
    return entry.facts.kind == EntryKind::File &&
           (!m_run.Filter().IsActive() || m_run.Filter().Passes(view.PathOf(entry.name)));
}

void FileSync::mirrorPass() {
    for (const FolderEntry& entry : m_pair.destination.Entries()) {
        if (m_run.Over())
            return;
        if (!takesPart(m_pair.destination, entry))
            continue;
        if (m_run.IsSurplus(m_pair, entry))
            deleteSurplus(entry);
        else
            bringBack(entry);
        m_run.AbortTest();
        m_run.Progress(0);
    }
}

/// A destination that is older than its counterpart. A differently spelt one has no counterpart here: the main pass
/// finds it.
void FileSync::bringBack(const FolderEntry& entry) {
    const unsigned now = m_tools.interruptions.Count();
    const std::optional<FileFacts> destination = m_pair.destination.Facts(entry);
    const std::optional<FileFacts> source =
        m_pair.source.Has(entry.name) ? m_pair.source.Facts(entry.name) : std::nullopt;
    if (!source || !destination || destination->kind != EntryKind::File || source->kind != EntryKind::File ||
        source->id == destination->id || modDateCompare::Compare(destination->modified, source->modified) >= 0)
        return;
    if (m_run.LeavesOut(*source)) // the main pass says so
        return;
    const Decided file{entry.name, *source, destination, now};
    if (m_run.React(m_pair.destination.PathOf(entry.name)) && isAsDecided(file))
        syncExisting(file);
}

void FileSync::deleteSurplus(const FolderEntry& entry) {
    const QString path = m_pair.destination.PathOf(entry.name);
    if (!m_run.MayDelete())
        return;
    m_run.FoundAtDestination();
    if (m_run.IsOwnFile(entry.facts.id) || m_run.IsLog(entry.facts.id))
        return m_run.LeaveAlone(path, m_tools.texts.OwnFile(path));
    if (m_run.IsBound() && !m_run.MayDo(Deletion(*m_pair.destination.Handle(), entry)))
        return;
    m_run.Line(m_tools.texts.DeletingFile(path));
    if (!m_run.React(path) || !m_run.MayDelete())
        return;
    std::error_code error;
    if (m_pair.source.Handle()->Stat(entry.name, error))
        error = changedMeanwhile();
    if (!error)
        error = m_run.Delete(*m_pair.destination.Handle(), entry);
    if (error)
        failed(m_pair.destination, entry.name, error);
}

/// A move takes links first: what they lead to may be taken away from beside them.
void FileSync::mainPass() {
    if (m_run.Rules().action != FileAction::Move)
        return mainPass([](const FolderEntry&) { return true; });
    mainPass([](const FolderEntry& entry) { return entry.facts.isLink; });
    mainPass([](const FolderEntry& entry) { return !entry.facts.isLink; });
}

void FileSync::mainPass(bool (*isMeant)(const FolderEntry&)) {
    for (const FolderEntry& entry : m_pair.source.Entries()) {
        if (m_run.Over())
            return;
        if (!isMeant(entry) || !takesPart(m_pair.source, entry) || m_failed.contains(entry.name))
            continue;
        syncFile(entry);
        m_run.AbortTest();
        m_run.Progress(0);
    }
}

void FileSync::syncFile(const FolderEntry& entry) {
    const unsigned now = m_tools.interruptions.Count();
    const std::optional<FileFacts> source = m_pair.source.Facts(entry);
    if (source && source->kind == EntryKind::Unknown)
        return failed(m_pair.source, entry.name, source->error);
    if (!source || source->kind != EntryKind::File || leavesOut(entry, *source))
        return;
    const Decided file{entry.name, *source, m_pair.destination.Facts(entry.name), now};
    const std::optional<FileFacts>& found = file.destination;
    if (!found)
        return syncNew(file);
    if (found->kind == EntryKind::Unknown)
        return failed(m_pair.source, entry.name, found->error);
    if (found->kind != EntryKind::File)
        return failed(m_pair.source, entry.name,
                      std::make_error_code(found->kind == EntryKind::Special ? std::errc::file_exists
                                                                             : std::errc::is_a_directory));
    if (found->id == source->id)
        return;
    const bool isStaged = found->id == FileId{};
    const bool isMove = m_run.Rules().action == FileAction::Move;
    if (const std::error_code error = isStaged ? std::error_code() : m_pair.names.Claim(entry.name, *found, isMove))
        return failed(m_pair.source, entry.name, error);
    m_run.FoundAtDestination();
    syncExisting(file);
}

bool FileSync::leavesOut(const FolderEntry& entry, const FileFacts& source) {
    if (!m_run.LeavesOut(source))
        return false;
    m_run.LeftOut(m_pair.source.Handle()->Path() / entry.name);
    m_leavesOut = true;
    return true;
}

/// Whatever was looked at before a box is looked at again behind it; a file that differs is left for the next run.
bool FileSync::isAsDecided(const Decided& file) {
    if (file.at == m_tools.interruptions.Count())
        return true;
    const std::optional<FileFacts> source = m_pair.source.Facts(file.name);
    const std::optional<FileFacts> destination = m_pair.destination.Facts(file.name);
    if (source && source->IsSameAs(file.source) && destination.has_value() == file.destination.has_value() &&
        (!destination || destination->IsSameAs(*file.destination)))
        return true;
    m_failed.insert(file.name);
    failed(m_pair.source, file.name, changedMeanwhile());
    return false;
}

/// The decision after the question; nothing when the file is done with.
std::optional<FileDecision> FileSync::ask(const Decided& file, const FileSide& from, const FileSide& to) {
    if (m_run.IsPlanning()) {
        m_run.Plan(::Transfer(Deed::Ask, orderOf(file)));
        return std::nullopt;
    }
    if (!m_run.MayDo(Deed::Ask, orderOf(file)))
        return std::nullopt;
    m_tools.logs.Flush();
    const MessageAnswer answer = m_tools.interruptions.Ask(m_tools.texts.OverwriteQuestion(from, to));
    if (m_run.Over())
        return std::nullopt;
    if (answer != MessageAnswer::Yes) {
        m_run.Line(m_tools.texts.Declined(from.path));
        return std::nullopt;
    }
    return isAsDecided(file) ? std::optional(SyncRules::DecideAfterYes(m_run.Rules())) : std::nullopt;
}

void FileSync::syncExisting(const Decided& file) {
    const FileRules rules = m_run.Rules();
    const FileSide from{m_pair.source.PathOf(file.name), file.source};
    const FileSide to{m_pair.destination.PathOf(file.name), *file.destination};
    std::optional<FileDecision> decision =
        SyncRules::DecideExisting(rules, modDateCompare::Compare(file.source.modified, file.destination->modified));
    if (decision == FileDecision::Ask)
        decision = ask(file, from, to);
    if (!decision)
        return;
    if (*decision == FileDecision::ReportOnly)
        return m_run.LeaveAlone(from.path, m_tools.texts.NoAction(from.path));
    if (*decision == FileDecision::LeaveAlone) {
        const auto line = [&] { return m_tools.texts.NotNewer(from, to); };
        const bool isOwnWork = file.destination->id == FileId{}; // by the pass before this one
        if (isOwnWork && !m_run.IsPlanning())
            m_run.Note(line);
        else if (!isOwnWork && !finishMove(file, from, to))
            m_run.LeaveAsIs(from.path, line);
        return;
    }
    if (!mayTouch(file) || !m_run.React(from.path) || !isAsDecided(file))
        return;
    m_run.Line(m_tools.texts.Replacement(rules, from, to));
    transfer(file);
}

/// An earlier run may have placed the copy and ended before it could remove the source.
bool FileSync::finishMove(const Decided& file, const FileSide& from, const FileSide& to) {
    if (!m_pair.hasUnfinishedMoves || m_run.Rules().action != FileAction::Move ||
        file.source.size != file.destination->size ||
        modDateCompare::Compare(file.source.modified, file.destination->modified) != 0 || !mayTouch(file))
        return false;
    m_run.Line(m_tools.texts.FinishingMove(from.path, to.path));
    return m_run.Transfer().CompleteMove(orderOf(file));
}

TransferFile FileSync::orderOf(const Decided& file) const {
    return {m_pair.source.Handle(), m_pair.destination.Handle(), file.name, file.source, file.destination};
}

void FileSync::syncNew(const Decided& file) {
    const QString path = m_pair.source.PathOf(file.name);
    if (!m_run.React(path))
        return;
    const FileAction action = m_run.Rules().action;
    if (action == FileAction::None)
        return m_run.LeaveAlone(path, m_tools.texts.NoAction(path));
    if (!mayTouch(file) || !isAsDecided(file))
        return;
    m_run.Line([&] { return m_tools.texts.New(action, {path, file.source}, m_pair.destination.PathOf(file.name)); });
    transfer(file);
}

/// The program's own files are neither replaced nor taken away.
bool FileSync::mayTouch(const Decided& file) {
    const bool isMove = m_run.Rules().action == FileAction::Move;
    const bool isTaken = isMove && m_run.IsOwnFile(file.source.id);
    if (!isTaken && !(file.destination && m_run.IsOwnFile(file.destination->id)))
        return m_run.MayDo(isMove ? Deed::Move : Deed::Copy, orderOf(file));
    const QString path = (isTaken ? m_pair.source : m_pair.destination).PathOf(file.name);
    m_run.Refuse(m_tools.texts.OwnFile(path), path);
    return false;
}

void FileSync::transfer(const Decided& file) {
    TransferFile order = orderOf(file);
    const bool isLog = m_run.IsLog(file.source.id);
    std::error_code error;
    if (isLog) // it has grown by the line about itself
        order.facts = m_pair.source.Handle()->Stat(file.name, error).value_or(file.source);
    const bool isMove = m_run.Rules().action == FileAction::Move;
    const bool isStaged = isMove ? m_run.Transfer().Move(order) : m_run.Transfer().Copy(order);
    if (!isStaged) {
        m_failed.insert(file.name);
        return;
    }
    if (order.replaced && !IsOwnWork(order))
        m_run.Replaced(order);
    if (isLog) // before the next line
        m_run.Transfer().Commit();
    FileFacts placed = order.facts;
    placed.id = {};
    placed.isLink = false;
    m_pair.destination.SetStaged(file.name, placed);
}

#include "SyncRun.h"
#include "ActivityFile.h"
#include "ActivityLogs.h"
#include "Clock.h"
#include "FileSync.h"
#include "FoldersAhead.h"
#include "OwnPlaces.h"
#include "Reactions.h"
#include "RunBrake.h"
#include "RunFacts.h"
#include "SafeExit.h"
#include "SurplusRemoval.h"
#include "SyncTexts.h"
#include "modNativePath.h"

#include <tuple>

using modNativePath::ToText;

namespace {
/// Time a copy in progress gets when the program closes: the system does not wait much longer.
constexpr std::chrono::seconds grace{20};
} // namespace

SyncRun::SyncRun(const RunTools& tools, RunIdentity identity, RunStarter starter, std::shared_ptr<Folder> source,
                 std::shared_ptr<Folder> destination, RunVariant variant)
    : m_tools(tools), m_identity(std::move(identity)), m_variant(variant), m_starter(starter),
      m_source(std::move(source)), m_destination(std::move(destination)), m_destinationMount(m_destination->Mount()),
      m_recordReadAt(tools.interruptions.Count() - 1),
      m_log(tools.services.file.Read(m_identity.name, ActivityField::LogFile)), m_end(RunEnd::None),
      m_trash(*this, m_destination, variant.expires),
      m_transfer(variant.plan != nullptr ? std::make_unique<PlanTransfer>(*this, *variant.plan, true)
                                         : tools.services.fileSystem.NewTransfer(*this, m_trash.Get())),
      m_staging(tools.interruptions, *m_transfer) {
    for (const auto& root : {m_source, m_destination})
        for (const FileId id : root->Ancestors())
            m_roots.insert(id);
}

SyncRun::~SyncRun() {
    m_transfer->Commit();
}

RunOutcome SyncRun::Run() {
    std::ignore = SyncFilesAndFolders({{m_source}, {m_destination}}, 0);
    m_transfer->Commit();
    if (hasApproval() && m_failures == 0 && !m_variant.approved->IsDone())
        End(RunEnd::NotAsApproved);
    m_trash.Finish();
    if (m_leftOut > 0)
        Line(m_tools.texts.LeftOut(m_leftOut, m_settle.Length(), m_firstLeftOut));
    m_tools.logs.Flush();
    readRecord(); // events have run: what follows must not use another record
    return {.failures = m_failures,
            .interrupted = m_end != RunEnd::None,
            .stoppedByUser = m_end == RunEnd::StoppedByUser,
            .reason = m_reason,
            .logLine = m_reasonAt,
            .settles = m_leftOut > 0 ? m_settle.Length() : std::chrono::seconds(0)};
}

/// Only events can change the record, so between them one look is enough.
void SyncRun::readRecord() {
    const unsigned now = m_tools.interruptions.Count();
    if (m_recordReadAt == now || m_end != RunEnd::None)
        return;
    m_recordReadAt = now;
    if (RunIdentity::Of(m_tools.services.file, Name()) != m_identity)
        return End(RunEnd::RecordChanged);
    const auto read = [this](ActivityField field) { return m_tools.services.file.Read(Name(), field); };
    m_rules = SyncRules::RulesOf(m_identity.action, read(ActivityField::Overwrite), read(ActivityField::OnlyNew));
    m_filter = FileTypeFilter(read(ActivityField::Extensions));
    m_settle = SettleTime(read(ActivityField::SettleSeconds));
    m_log = read(ActivityField::LogFile);
}

/// Called only before a file is written, moved or deleted: an unchanged run does not pay for it.
void SyncRun::lookAtOwnFiles() {
    readRecord();
    const unsigned now = m_tools.interruptions.Count();
    if (m_ownFilesSeenAt == now)
        return;
    m_ownFilesSeenAt = now;
    m_ownFiles = m_tools.ownPlaces.Protected();
    m_logs = m_tools.ownPlaces.Logs(m_log);
}

bool SyncRun::Over() {
    if (m_tools.services.runState.Closing())
        End(RunEnd::Closing);
    else if (m_starter == RunStarter::Schedule && !m_tools.monitoring.IsOn())
        End(RunEnd::Stopped);
    else if (m_tools.services.runState.Progress().mustStop)
        End(RunEnd::StoppedByUser);
    readRecord();
    return m_end != RunEnd::None;
}

void SyncRun::End(RunEnd reason) {
    if (m_end != RunEnd::None)
        return;
    m_end = reason;
    const QString text = m_tools.texts.EndedEarly(reason);
    if (IsFailure(reason))
        return Refuse(text);
    noteReason(text);
    Line(text);
}

/// The first one counts: what fails later is mostly its consequence.
void SyncRun::noteReason(const QString& text) {
    if (!m_reason.isEmpty())
        return;
    m_reason = text;
    m_reasonAt = m_tools.logs.EndOf(m_log);
}

void SyncRun::AbortTest() {
    if (!m_tools.safeExit.IsRequested())
        return;
    End(RunEnd::SafeExit);
    m_tools.safeExit.End(m_tools.monitoring);
}

bool SyncRun::MayDelete() {
    if (Over())
        return false;
    if (m_source->StillThere() && m_destination->StillThere())
        return true;
    End(RunEnd::RootGone);
    return false;
}

bool SyncRun::IsSurplus(FolderPair& pair, const FolderEntry& entry) {
    if (!pair.mayDelete || pair.source.Has(entry.name) || pair.names.IsCounterpart(entry.name))
        return false;
    const std::optional<FileFacts> source = pair.source.Facts(entry.name);
    if (source && source->kind == EntryKind::Unknown)
        Failed(pair.source.Handle()->Path() / entry.name, source->error);
    return !source;
}

const FileRules& SyncRun::Rules() {
    readRecord();
    return m_rules;
}

const FileTypeFilter& SyncRun::Filter() {
    readRecord();
    return m_filter;
}

bool SyncRun::MayLeaveOut() {
    readRecord();
    return m_settle.IsOn();
}

/// A log of this run has just got a line.
bool SyncRun::LeavesOut(const FileFacts& file) {
    return MayLeaveOut() && !m_settle.HasSettled(file, m_tools.services.clock.Now()) && !IsLog(file.id);
}

void SyncRun::LeftOut(const std::filesystem::path& source) {
    const QString path = ToText(source);
    if (m_leftOut++ == 0)
        m_firstLeftOut = path;
    if (IsPlanning())
        LeaveAlone(path, m_tools.texts.LeftOut(1, m_settle.Length(), path));
    else
        m_tools.services.runState.Counts().leftAlone += 1;
}

bool SyncRun::IsOwnFile(FileId file) {
    lookAtOwnFiles();
    return m_ownFiles.contains(file);
}

bool SyncRun::IsLog(FileId file) {
    lookAtOwnFiles();
    return m_logs.contains(file);
}

bool SyncRun::MayDo(const PlannedAct& act) {
    if (hasApproval() && !m_variant.approved->Approves(act))
        End(RunEnd::NotAsApproved);
    else if (m_variant.brake != nullptr && !m_variant.brake->Allows(act))
        End(RunEnd::TooMany);
    return m_end == RunEnd::None;
}

bool SyncRun::MayDo(Deed deed, const TransferFile& file) {
    return !IsBound() || IsOwnWork(file) || (!hasApproval() && IsLog(file.facts.id)) || MayDo(::Transfer(deed, file));
}

void SyncRun::FoundAtDestination() {
    if (m_variant.brake != nullptr)
        m_variant.brake->Found();
}

void SyncRun::Replaced(const TransferFile& file) {
    m_tools.services.runState.Counts().replaced += 1;
    if (IsBound() && m_variant.brake != nullptr && !IsLog(file.facts.id))
        m_variant.brake->Take(::Transfer(Deed::Replace, file));
}

std::error_code SyncRun::Delete(Folder& folder, const FolderEntry& entry) {
    if (IsPlanning()) {
        Plan(Deletion(folder, entry));
        return {};
    }
    if (IsBound() && !MayDo(Deletion(folder, entry)))
        return {};
    const std::error_code error = m_trash.Delete(folder, entry);
    if (error)
        return error;
    m_tools.services.runState.Counts().deleted += 1;
    if (m_variant.brake != nullptr)
        m_variant.brake->Take(Deletion(folder, entry));
    return {};
}

void SyncRun::LeaveAlone(const QString& path, const QString& text) {
    m_tools.services.runState.Counts().leftAlone += 1;
    if (IsPlanning())
        Plan({.deed = Deed::LeaveAlone, .path = path, .destination = {}, .reason = text});
    else
        Line(text);
}

void SyncRun::LeaveAsIs(const QString& path, const std::function<QString()>& compose) {
    if (IsPlanning())
        return LeaveAlone(path, compose());
    m_tools.services.runState.Counts().leftAlone += 1;
    Note(compose);
}

bool SyncRun::React(const QString& path) {
    if (IsPlanning())
        return !Over();
    m_tools.reactions.ReactToChange(Name(), path, [this] { return !Over(); });
    return !Over();
}

/// To the log that the record named last: once the record has changed, its log may be another activity's.
void SyncRun::Line(const QString& text) {
    readRecord();
    if (IsPlanning())
        return;
    m_tools.logs.WriteActionLineTo(m_log, Name(), text);
}

void SyncRun::Line(const std::function<QString()>& compose) {
    readRecord();
    if (!IsPlanning() && m_tools.logs.IsRead(m_log))
        m_tools.logs.WriteActionLineTo(m_log, Name(), compose());
}

void SyncRun::Note(const std::function<QString()>& compose) {
    readRecord();
    if (m_tools.logs.IsRead(m_log))
        m_tools.logs.GatherActionLine(m_log, Name(), compose());
}

void SyncRun::Refuse(const QString& text, const QString& path) {
    ++m_failures;
    noteReason(text);
    if (IsPlanning())
        Plan({.deed = Deed::Fail, .path = path, .destination = {}, .reason = text});
    else
        Line(text);
}

void SyncRun::Failed(const std::filesystem::path& source, std::error_code error) {
    const QString path = ToText(source);
    Refuse(m_tools.texts.Failure(path, error), path);
}

void SyncRun::Progress(std::uint64_t bytes) {
    m_tools.services.runState.Counts().bytes += bytes;
    m_tools.interruptions.YieldWhenDue();
}

bool SyncRun::MustGiveUp() {
    if (!m_tools.services.runState.Closing())
        return false;
    if (!m_closingSince)
        m_closingSince = m_tools.interruptions.Now();
    return m_tools.interruptions.Now() - *m_closingSince >= grace;
}

bool SyncRun::SyncFilesAndFolders(SeenPair folders, int depth) {
    AbortTest();
    if (Over())
        return true;
    if (depth > Folder::MostLevels) {
        const QString path = ToText(folders.source.folder->Path());
        Refuse(m_tools.texts.TooDeep(path), path);
        return true;
    }
    const UnfinishedWork unfinished = Rules().action == FileAction::None || IsPlanning()
                                          ? UnfinishedWork{}
                                          : folders.destination.folder->RemoveLeftovers();
    if (unfinished.isNewFolder && depth > 0)
        return false;
    FolderPair pair(std::move(folders), depth, m_tools.interruptions);
    const bool isMirror = Rules().action == FileAction::Mirror;
    pair.hasUnfinishedMoves = unfinished.hasMoves;
    pair.mayDelete = isMirror && IsOnMount(*pair.destination.Handle(), m_destinationMount);
    SyncFiles(pair);
    if (!Over() && m_tools.services.file.Read(Name(), ActivityField::IncludeSubdirs) == u"Y")
        SyncFolders(pair);
    return true;
}

bool SyncRun::IsOnMount(const Folder& folder, std::optional<std::uint64_t> mount) {
    const std::optional<std::uint64_t> found = folder.Mount();
    if (!found || !mount)
        Failed(folder.Path(), std::make_error_code(std::errc::io_error));
    else if (found != mount)
        LeaveAlone(ToText(folder.Path()), m_tools.texts.OtherMount(ToText(folder.Path())));
    return found && found == mount;
}

void SyncRun::SyncFiles(FolderPair& pair) {
    m_tools.interruptions.Yield();
    if (!Over())
        FileSync(*this, pair).Run();
}

void SyncRun::SyncFolders(FolderPair& pair) {
    FoldersAhead ahead(m_tools.services.fileSystem, m_tools.interruptions, pair, m_rules.action == FileAction::Mirror);
    for (const FolderEntry& entry : pair.source.Entries()) {
        if (Over())
            return;
        if (entry.facts.kind != EntryKind::Folder || IsRootOrAbove(entry.facts.id))
            continue;
        syncFolder(pair, entry, ahead);
        AbortTest();
    }
    if (m_rules.action != FileAction::Mirror)
        return;
    for (const FolderEntry& entry : pair.destination.Entries()) {
        if (Over())
            return;
        if (entry.facts.kind != EntryKind::Folder || !IsSurplus(pair, entry))
            continue;
        SurplusRemoval(*this, pair, entry).DeleteTree();
        AbortTest();
    }
}

void SyncRun::syncFolder(FolderPair& pair, const FolderEntry& entry, FoldersAhead& ahead) {
    std::error_code error;
    const std::optional<FileFacts> found = pair.destination.Handle()->Stat(entry.name, error);
    if (!found && !error)
        return transferFolder(pair, entry);
    if (found && found->kind == EntryKind::Folder && found->id != entry.facts.id) {
        error = pair.names.Claim(entry.name, *found, false);
        if (!error)
            return walkInto(pair, entry, {entry.name, *found}, ahead);
    } else if (found && (found->kind == EntryKind::File || found->kind == EntryKind::Special)) {
        error = std::make_error_code(std::errc::not_a_directory);
    }
    if (error)
        Failed(pair.source.Handle()->Path() / entry.name, error);
}

void SyncRun::transferFolder(FolderPair& pair, const FolderEntry& entry) {
    const QString path = ToText(pair.source.Handle()->Path() / entry.name);
    if (!React(path))
        return;
    const FileAction action = m_rules.action;
    if (action == FileAction::None)
        return LeaveAlone(path, m_tools.texts.NoAction(path));
    if (action == FileAction::Move && m_tools.ownPlaces.Folders().contains(entry.facts.id))
        return Refuse(m_tools.texts.OwnFile(path), path);
    const auto transfer = [&](FileTransfer& how) {
        if (action == FileAction::Move)
            how.MoveTree(pair.source.Handle(), pair.destination.Handle(), entry, m_roots);
        else
            how.CopyTree(pair.source.Handle(), pair.destination.Handle(), entry, m_roots);
    };
    if (hasApproval()) { // the whole folder goes in one step
        std::vector<PlannedAct> acts;
        PlanTransfer planning(*this, acts, false);
        transfer(planning);
        for (const PlannedAct& act : acts)
            if (!MayDo(act))
                return;
    }
    Line(m_tools.texts.TransferringFolder(path, ToText(pair.destination.Handle()->Path() / entry.name)));
    transfer(*m_transfer);
}

void SyncRun::walkInto(FolderPair& pair, const FolderEntry& source, const FolderEntry& destination,
                       FoldersAhead& ahead) {
    const auto path = [&] { return pair.destination.Handle()->Path() / destination.name; };
    // Work there would take the source itself for the destination's surplus.
    if (IsRootOrAbove(destination.facts.id))
        return Refuse(m_tools.texts.NestedRoot(ToText(path())), ToText(path()));
    std::error_code error;
    SeenPair folders = ahead.Take(source);
    if (pair.Open(source, destination, folders, error)) {
        pair.source.ForgetPath();
        pair.destination.ForgetPath();
        if (!SyncFilesAndFolders(std::move(folders), pair.depth + 1))
            finishFolder(pair, source, destination);
        return;
    }
    Failed(folders.source.folder ? path() : pair.source.Handle()->Path() / source.name, error);
    // What is listed there now belongs to another folder, for example to an empty mount point.
    if (error == std::errc::resource_unavailable_try_again)
        End(RunEnd::FolderExchanged);
}

/// An earlier run has left the folder unfinished: what it lacks comes as a whole, what it holds is then compared.
void SyncRun::finishFolder(FolderPair& pair, const FolderEntry& source, const FolderEntry& destination) {
    transferFolder(pair, source);
    m_transfer->Commit();
    std::error_code error;
    SeenPair folders;
    if (pair.Open(source, destination, folders, error)) // a move may have taken it away
        std::ignore = SyncFilesAndFolders(std::move(folders), pair.depth + 1);
}

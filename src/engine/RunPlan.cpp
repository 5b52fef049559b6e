#include "RunPlan.h"
#include "modNativePath.h"

#include <QHashFunctions>
#include <algorithm>
#include <utility>

using modNativePath::ToText;

namespace {

bool isDeed(const PlannedAct& act) {
    return act.deed != Deed::LeaveAlone && act.deed != Deed::Fail;
}

Deed effectOf(const PlannedAct& act) {
    return act.deed == Deed::Ask ? Deed::Replace : act.deed;
}

std::size_t keyOf(const PlannedAct& act) {
    return qHashMulti(0, static_cast<int>(effectOf(act)), act.path, act.destination);
}

bool isSame(const PlannedAct& one, const PlannedAct& other) {
    return effectOf(one) == effectOf(other) && one.path == other.path && one.destination == other.destination &&
           one.isFolder == other.isFolder && (one.isFolder || one.facts.IsSameAs(other.facts)) &&
           one.replaced.IsSameAs(other.replaced);
}

} // namespace

bool RunPlan::HasDeeds() const {
    return std::any_of(acts.begin(), acts.end(), isDeed);
}

ApprovedPlan::ApprovedPlan(const RunPlan& plan) {
    for (const PlannedAct& act : plan.acts)
        if (isDeed(act))
            m_approved.emplace(keyOf(act), Approved{&act});
    m_left = m_approved.size();
}

bool ApprovedPlan::Approves(const PlannedAct& act) {
    const auto [first, last] = m_approved.equal_range(keyOf(act));
    const auto found = std::find_if(first, last, [&](const auto& each) { return isSame(*each.second.act, act); });
    if (found == last)
        return false;
    if (!std::exchange(found->second.isAskedFor, true))
        --m_left;
    return true;
}

PlannedAct Deletion(const Folder& folder, const FolderEntry& entry) {
    return {.deed = Deed::Delete,
            .path = ToText(folder.Path() / entry.name),
            .destination = {},
            .reason = {},
            .isFolder = entry.facts.kind == EntryKind::Folder,
            .facts = entry.facts};
}

bool IsOwnWork(const TransferFile& file) {
    return file.replaced && file.replaced->id == FileId{};
}

PlannedAct Transfer(Deed deed, const TransferFile& file) {
    return {.deed = file.replaced && deed != Deed::Ask ? Deed::Replace : deed,
            .path = ToText(file.source->Path() / file.name),
            .destination = ToText(file.destination->Path() / file.name),
            .reason = {},
            .facts = file.facts,
            .replaced = file.replaced.value_or(FileFacts())};
}

bool PlanTransfer::add(Deed deed, const TransferFile& file) {
    if (!IsOwnWork(file)) // a mirror comes by twice
        m_acts.push_back(::Transfer(deed, file));
    return true;
}

bool PlanTransfer::Copy(const TransferFile& file) {
    return add(Deed::Copy, file);
}

bool PlanTransfer::Move(const TransferFile& file) {
    return add(Deed::Move, file);
}

bool PlanTransfer::CompleteMove(const TransferFile& file) {
    return Move(file);
}

void PlanTransfer::failed(const std::filesystem::path& path, std::error_code error) {
    if (m_tellsFailures)
        m_observer.Failed(path, error);
}

void PlanTransfer::CopyTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                            const FolderEntry& entry, const std::set<FileId>& excluded) {
    addTree(Deed::Copy, *source, destination->Path(), entry, excluded, 0);
}

void PlanTransfer::MoveTree(const std::shared_ptr<Folder>& source, const std::shared_ptr<Folder>& destination,
                            const FolderEntry& entry, const std::set<FileId>& excluded) {
    addTree(Deed::Move, *source, destination->Path(), entry, excluded, 0);
}

/// What the real transfer takes along: files and folders, no links to folders and nothing special.
void PlanTransfer::addTree(Deed deed, const Folder& source, const std::filesystem::path& destination,
                           const FolderEntry& entry, const std::set<FileId>& excluded, int depth) {
    const std::filesystem::path path = source.Path() / entry.name;
    const std::filesystem::path target = destination / entry.name;
    if (depth >= Folder::MostLevels)
        return failed(path, std::make_error_code(std::errc::too_many_symbolic_link_levels));
    std::error_code error;
    std::vector<FolderEntry> entries;
    const std::shared_ptr<Folder> folder = source.OpenChild(entry, error);
    if (folder)
        error = folder->List(entries);
    if (error)
        return failed(path, error);
    m_acts.push_back({.deed = deed,
                      .path = ToText(path),
                      .destination = ToText(target),
                      .reason = {},
                      .isFolder = true,
                      .facts = entry.facts});
    for (const FolderEntry& inner : entries) {
        if (m_observer.StopRequested())
            return;
        m_observer.Progress(0);
        if (inner.facts.kind == EntryKind::Unknown) {
            failed(path / inner.name, inner.facts.error);
        } else if (inner.facts.kind == EntryKind::Folder && !excluded.contains(inner.facts.id)) {
            addTree(deed, *folder, target, inner, excluded, depth + 1);
        } else if (inner.facts.kind == EntryKind::File && m_observer.LeavesOut(inner.facts)) {
            if (m_tellsFailures)
                m_observer.LeftOut(path / inner.name);
        } else if (inner.facts.kind == EntryKind::File) {
            m_acts.push_back({.deed = deed,
                              .path = ToText(path / inner.name),
                              .destination = ToText(target / inner.name),
                              .reason = {},
                              .facts = inner.facts});
        }
    }
}

#include "FolderView.h"
#include "modNativePath.h"

#include <algorithm>

namespace {
/// Where the name is in entries sorted by name, or belongs.
auto placeOf(auto& sorted, const std::filesystem::path& name) {
    return std::lower_bound(sorted.begin(), sorted.end(), name,
                            [](const FolderEntry& entry, const std::filesystem::path& wanted) {
                                return entry.name.native() < wanted.native();
                            });
}

std::vector<FolderEntry>::const_iterator find(const std::vector<FolderEntry>& sorted,
                                              const std::filesystem::path& name) {
    const auto at = placeOf(sorted, name);
    return at != sorted.end() && at->name.native() == name.native() ? at : sorted.end();
}
} // namespace

FolderView::FolderView(SeenFolder folder, const Interruptions& interruptions)
    : m_folder(std::move(folder.folder)), m_interruptions(interruptions), m_entries(std::move(folder.entries)),
      m_look(folder.look), m_isListed(folder.isListed) {}

QString FolderView::PathOf(const std::filesystem::path& name) {
    if (m_pathPrefix.isEmpty())
        m_pathPrefix = modNativePath::ToText(m_folder->Path() / "");
    return m_pathPrefix + modNativePath::ToText(name);
}

std::error_code FolderView::List() {
    if (m_isListed && isFresh())
        return {};
    m_look = m_interruptions.LookNow();
    const std::error_code error = m_folder->List(m_entries);
    m_isListed = !error;
    return error;
}

bool FolderView::isFresh() const {
    return m_interruptions.IsFresh(m_look);
}

std::optional<FileFacts> FolderView::Facts(const std::filesystem::path& name) {
    const auto staged = find(m_staged, name);
    if (staged != m_staged.end())
        return staged->facts;
    if (isFresh()) {
        const auto listed = find(m_entries, name);
        if (listed != m_entries.end() && !listed->facts.isLink) // the run may have moved what a link leads to
            return listed->facts;
    }
    return lookAgain(name);
}

std::optional<FileFacts> FolderView::Facts(const FolderEntry& listed) {
    const bool isAsListed = !listed.facts.isLink && isFresh() && m_staged.empty();
    return isAsListed ? std::optional(listed.facts) : Facts(listed.name);
}

std::optional<FileFacts> FolderView::lookAgain(const std::filesystem::path& name) const {
    std::error_code error;
    std::optional<FileFacts> facts = m_folder->Stat(name, error);
    // What cannot be looked at is there all the same: nothing may be put in its place.
    return !facts && error ? std::optional(FileFacts{.kind = EntryKind::Unknown, .error = error}) : facts;
}

bool FolderView::Has(const std::filesystem::path& name) const {
    return find(m_entries, name) != m_entries.end();
}

void FolderView::SetStaged(const std::filesystem::path& name, const FileFacts& facts) {
    const auto at = placeOf(m_staged, name);
    if (at != m_staged.end() && at->name.native() == name.native())
        at->facts = facts;
    else
        m_staged.insert(at, {name, facts});
}

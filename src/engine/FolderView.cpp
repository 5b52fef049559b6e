#include "FolderView.h"
#include "Interruptions.h"
#include "modNativePath.h"

#include <algorithm>

namespace {
std::vector<FolderEntry>::const_iterator find(const std::vector<FolderEntry>& sorted,
                                              const std::filesystem::path& name) {
    const auto at = std::lower_bound(sorted.begin(), sorted.end(), name,
                                     [](const FolderEntry& entry, const std::filesystem::path& wanted) {
                                         return entry.name.native() < wanted.native();
                                     });
    return at != sorted.end() && at->name.native() == name.native() ? at : sorted.end();
}
} // namespace

FolderView::FolderView(std::shared_ptr<Folder> folder, const Interruptions& interruptions)
    : m_folder(std::move(folder)), m_pathPrefix(modNativePath::ToText(m_folder->Path() / "")),
      m_interruptions(interruptions) {}

QString FolderView::PathOf(const std::filesystem::path& name) const {
    return m_pathPrefix + modNativePath::ToText(name);
}

std::error_code FolderView::List() {
    m_listedAt = m_interruptions.Count();
    const std::error_code error = m_folder->List(m_entries);
    m_listed = !error;
    return error;
}

bool FolderView::isFresh() const {
    return m_listed && m_listedAt == m_interruptions.Count();
}

std::optional<FileFacts> FolderView::Facts(const std::filesystem::path& name) {
    const auto staged = find(m_staged, name);
    if (staged != m_staged.end())
        return staged->facts;
    if (isFresh()) {
        const auto listed = find(m_entries, name);
        if (listed != m_entries.end())
            return listed->facts;
    }
    return lookAgain(name);
}

std::optional<FileFacts> FolderView::Facts(const FolderEntry& listed) {
    const bool isAsListed = isFresh() && m_staged.empty();
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
    const auto at = std::lower_bound(m_staged.begin(), m_staged.end(), name,
                                     [](const FolderEntry& entry, const std::filesystem::path& wanted) {
                                         return entry.name.native() < wanted.native();
                                     });
    if (at != m_staged.end() && at->name.native() == name.native())
        at->facts = facts;
    else
        m_staged.insert(at, {name, facts});
}

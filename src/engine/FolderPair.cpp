#include "FolderPair.h"
#include "modNativePath.h"

#include <algorithm>
#include <tuple>

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

/// The name with its letters in the other case, the ASCII ones or all; the same name when it has none, or is no text.
std::filesystem::path otherSpelling(const std::filesystem::path& name, bool asciiOnly) {
    QString text = modNativePath::ToText(name);
    if (modNativePath::FromText(text) != name)
        return name;
    for (QChar& letter : text) {
        if (!asciiOnly || letter.unicode() < 0x80)
            letter = letter.isLower() ? letter.toUpper() : letter.toLower();
    }
    return modNativePath::FromText(text);
}

QString foldedText(const std::filesystem::path& name) {
    return modNativePath::ToText(name).normalized(QString::NormalizationForm_C).toCaseFolded();
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
    const auto at = placeOf(m_staged, name);
    if (at != m_staged.end() && at->name.native() == name.native())
        at->facts = facts;
    else
        m_staged.insert(at, {name, facts});
}

/// An entry that answers to a name which the folder does not list. Ids alone would not tell: some file systems give
/// each spelling one of its own.
bool DestinationNames::folds(const std::filesystem::path& name) {
    if (m_folds)
        return *m_folds;
    std::filesystem::path other = otherSpelling(name, true);
    const bool isAscii = other != name; // what folds anything folds these
    if (!isAscii)
        other = otherSpelling(name, false);
    if (other == name)
        return false; // tells nothing; the next name may
    std::error_code error;
    const std::optional<FileFacts> found = m_destination.Handle()->Stat(other, error);
    if (!found && !error) {
        if (isAscii)
            m_folds = false;
        return false;
    }
    std::vector<FolderEntry> entries;
    if (!m_destination.Handle()->List(entries)) {
        const auto isListed = [&](const std::filesystem::path& wanted) {
            return std::any_of(entries.begin(), entries.end(),
                               [&](const FolderEntry& entry) { return entry.name == wanted; });
        };
        if (isListed(name) && isListed(other))
            return false; // both exist: tells nothing
    }
    m_folds = true;
    return true;
}

void DestinationNames::remember(const std::vector<FolderEntry>& entries) {
    m_listed.clear();
    m_alike.clear();
    for (const FolderEntry& entry : entries) {
        m_listed.emplace(entry.name, entry.facts.id);
        m_alike.insert(foldedText(entry.name), entry.name);
    }
}

/// The spelling in which the folder lists the entry. The id says it where ids are true; where every spelling has one of
/// its own, the only name that differs in nothing but letter case does.
std::optional<std::filesystem::path> DestinationNames::listedName(const std::filesystem::path& name,
                                                                  const FileFacts& found) const {
    if (m_listed.contains(name))
        return name;
    const QList<std::filesystem::path> alike = m_alike.values(foldedText(name));
    for (const std::filesystem::path& other : alike) {
        if (m_listed.at(other) == found.id)
            return other;
    }
    if (alike.size() == 1)
        return alike.front();
    const auto sameId =
        std::find_if(m_listed.begin(), m_listed.end(), [&](const auto& entry) { return entry.second == found.id; });
    return sameId == m_listed.end() ? std::nullopt : std::optional(sameId->first);
}

std::optional<std::filesystem::path> DestinationNames::realName(const std::filesystem::path& name,
                                                                const FileFacts& found) {
    if (auto known = listedName(name, found))
        return known;
    // It was put there since.
    std::vector<FolderEntry> entries;
    if (m_destination.Handle()->List(entries))
        return std::nullopt;
    remember(entries);
    return listedName(name, found);
}

std::error_code DestinationNames::Claim(const std::filesystem::path& name, const FileFacts& found, bool exactOnly) {
    if (!folds(name))
        return {};
    const std::optional<std::filesystem::path> entry = realName(name, found);
    if (!entry)
        return std::make_error_code(std::errc::resource_unavailable_try_again);
    const bool isOthers = *entry != name && (exactOnly || m_source.Has(*entry));
    return isOthers || m_claims.emplace(*entry, name).first->second != name
               ? std::make_error_code(std::errc::file_exists)
               : std::error_code();
}

void DestinationNames::FindCounterparts() {
    const std::vector<FolderEntry>& entries = m_destination.Entries();
    for (std::size_t i = 0; i < entries.size() && !m_folds; ++i)
        std::ignore = folds(entries[i].name);
    if (!m_folds.value_or(false))
        return;
    remember(entries);
    for (const FolderEntry& entry : m_source.Entries()) {
        if (m_destination.Has(entry.name))
            continue;
        std::error_code error;
        const std::optional<FileFacts> found = m_destination.Handle()->Stat(entry.name, error);
        if (!found && !error)
            continue;
        const std::optional<std::filesystem::path> real = found ? realName(entry.name, *found) : std::nullopt;
        if (real)
            m_counterparts.insert(*real);
        else
            m_isUnclear = true;
    }
}

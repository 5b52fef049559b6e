#include "FolderPair.h"
#include "modNativePath.h"

#include <algorithm>
#include <tuple>

namespace {
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

bool FolderPair::Open(const FolderEntry& sourceEntry, const FolderEntry& destinationEntry, SeenPair& folders,
                      std::error_code& error) const {
    SeenFolder& from = folders.source;
    SeenFolder& to = folders.destination;
    if (!from.folder)
        from = {source.Handle()->OpenChild(sourceEntry, error)};
    if (from.folder && (!to.folder || to.folder->Id() != destinationEntry.facts.id))
        to = {destination.Handle()->OpenChild(destinationEntry, error)};
    return from.folder && to.folder;
}

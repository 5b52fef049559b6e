#include "DestinationNames.h"
#include "modNativePath.h"

#include <algorithm>

namespace {
/// The name with every ASCII letter in the other case; the same name when it has none, or is no text.
std::filesystem::path otherSpelling(const std::filesystem::path& name) {
    QString text = modNativePath::ToText(name);
    if (modNativePath::FromText(text) != name)
        return name;
    for (QChar& letter : text) {
        if (letter.unicode() < 0x80 && letter.isLetter())
            letter = letter.isLower() ? letter.toUpper() : letter.toLower();
    }
    return modNativePath::FromText(text);
}

/// File systems without inodes may give every spelling an id of its own.
bool lookAlike(const FileFacts& a, const FileFacts& b) {
    return a.kind == b.kind && a.size == b.size && a.modified.nanoseconds == b.modified.nanoseconds;
}
} // namespace

bool DestinationNames::folds(const std::filesystem::path& name, const FileFacts& facts) {
    if (m_folds)
        return *m_folds;
    const std::filesystem::path other = otherSpelling(name);
    if (other == name)
        return false; // tells nothing; the next name may
    std::error_code error;
    const std::optional<FileFacts> found = m_destination.Handle()->Stat(other, error);
    if (found && found->id != facts.id && !lookAlike(*found, facts))
        return false; // both spellings exist: tells nothing of this disk
    m_folds = found.has_value() || error;
    return *m_folds;
}

std::optional<std::filesystem::path> DestinationNames::listedName(const std::filesystem::path& name,
                                                                  const FileFacts& found) const {
    const auto find = [this](const auto& test) -> std::optional<std::filesystem::path> {
        const auto at = std::find_if(m_entries.begin(), m_entries.end(), test);
        return at == m_entries.end() ? std::nullopt : std::optional(at->name);
    };
    if (std::binary_search(
            m_entries.begin(), m_entries.end(), FolderEntry{name, {}},
            [](const FolderEntry& a, const FolderEntry& b) { return a.name.native() < b.name.native(); }))
        return name;
    if (const auto same = find([&](const FolderEntry& entry) { return entry.facts.id == found.id; }))
        return same;
    return find([&](const FolderEntry& entry) { return lookAlike(entry.facts, found); });
}

std::optional<std::filesystem::path> DestinationNames::realName(const std::filesystem::path& name,
                                                                const FileFacts& found) {
    if (const auto known = listedName(name, found))
        return known;
    // It was put there since.
    return m_destination.Handle()->List(m_entries) ? std::nullopt : listedName(name, found);
}

std::error_code DestinationNames::Claim(const std::filesystem::path& name, const FileFacts& found, bool exactOnly) {
    if (!folds(name, found))
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
    m_entries = m_destination.Entries();
    for (std::size_t i = 0; i < m_entries.size() && !m_folds; ++i)
        static_cast<void>(folds(m_entries[i].name, m_entries[i].facts));
    if (!m_folds.value_or(false))
        return;
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

#include "FoldersAhead.h"
#include "FileSystem.h"

namespace {
constexpr std::size_t mostAhead = 2;
} // namespace

SeenPair FoldersAhead::Take(const FolderEntry& entry) {
    while (!m_ahead.empty() && m_ahead.front().entry < &entry)
        m_ahead.pop_front();
    std::optional<Ahead> present;
    if (!m_ahead.empty() && m_ahead.front().entry == &entry) {
        present = std::move(m_ahead.front());
        m_ahead.pop_front();
    }
    begin(entry);
    if (!present || !present->work)
        return {};
    std::optional<ReadAhead::Result> read = present->work->Take([this] { m_interruptions.YieldWhenDue(); });
    if (!read)
        return {};
    return {.source = {std::move(read->source), std::move(read->entries), true, present->look},
            .destination = {std::move(read->destination), std::move(read->found), m_listsDestination, present->look}};
}

/// With the next sub-folders behind this one.
void FoldersAhead::begin(const FolderEntry& entry) {
    const std::vector<FolderEntry>& entries = m_level.source.Entries();
    const FolderEntry* next = m_ahead.empty() ? &entry : m_ahead.back().entry;
    while (m_ahead.size() < mostAhead && ++next != entries.data() + entries.size()) {
        if (next->facts.kind != EntryKind::Folder)
            continue;
        ReadAhead::Order order{m_level.source.Handle(), *next, m_level.destination.Handle(), m_listsDestination};
        const Interruptions::Look look = m_interruptions.LookNow();
        m_ahead.push_back({next, m_fileSystem.Begin(std::move(order)), look});
    }
}

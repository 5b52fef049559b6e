#include "Leftovers.h"
#include "TemporaryName.h"

#include <utility>

UnfinishedWork Leftovers::RemoveFiles(const std::function<bool(const std::string& name)>& isLeftover,
                                      const Remove& remove) {
    const Names names = std::exchange(m_seen, std::nullopt).value_or(Names());
    m_marks.clear();
    UnfinishedWork work;
    for (const std::string& name : names) {
        if (!isLeftover(name))
            continue;
        const TemporaryKind kind = KindOfTemporary(name);
        work.isNewFolder |= kind == TemporaryKind::NewFolder;
        work.hasMoves |= kind == TemporaryKind::Moves;
        if (kind == TemporaryKind::File)
            remove(name);
        else
            m_marks.push_back(name);
    }
    return work;
}

void Leftovers::RemoveMarks(const Remove& remove) {
    for (const std::string& name : m_marks)
        remove(name);
    m_marks.clear();
}

#include "ListSearch.h"

#include "ActivityList.h"

std::optional<int> ListSearch::Search(const ActivityList& list, const QString& text, bool matchCase) {
    m_text = text;
    m_matchCase = matchCase;
    return SearchAgain(list, -1);
}

std::optional<int> ListSearch::SearchAgain(const ActivityList& list, int row) {
    m_found = false;
    if (m_text.isEmpty())
        return std::nullopt;
    for (int next = row + 1; next < list.Rows(); ++next) {
        if (isInRow(list, next)) {
            m_found = true;
            return next;
        }
    }
    return std::nullopt;
}

bool ListSearch::isIn(const QString& text) const {
    return m_matchCase ? text.contains(m_text) : text.toUpper().contains(m_text.toUpper());
}

bool ListSearch::isInRow(const ActivityList& list, int row) const {
    const QString name = list.NameAt(row);
    for (const auto column : {ActivityList::Name, ActivityList::Source, ActivityList::Destination,
                              ActivityList::Schedule, ActivityList::Status}) {
        if (isIn(list.Text(name, column)))
            return true;
    }
    return isIn(list.CommentAt(row));
}

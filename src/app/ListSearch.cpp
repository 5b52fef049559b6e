#include "ListSearch.h"

#include "ActivityList.h"
#include <algorithm>

std::optional<int> ListSearch::Search(const ActivityList& list, const Order& order, const QString& text,
                                      bool matchCase) {
    m_text = text;
    m_matchCase = matchCase;
    return SearchAgain(list, order, std::nullopt);
}

std::optional<int> ListSearch::SearchAgain(const ActivityList& list, const Order& order, std::optional<int> row) {
    m_found = false;
    if (m_text.isEmpty())
        return std::nullopt;
    const auto start = row ? std::find(order.begin(), order.end(), *row) : order.end();
    const auto hit = std::find_if(start == order.end() ? order.begin() : std::next(start), order.end(),
                                  [&](int next) { return isInRow(list, next); });
    m_found = hit != order.end();
    return m_found ? std::optional(*hit) : std::nullopt;
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

// Searches the rows of the activity list for a text. Owns the last search, so that it can be repeated. Never fails.
#pragma once

#include <QString>
#include <optional>
#include <vector>

class ActivityList;

class ListSearch final {
  public:
    /// The rows of a list, in the order in which they are searched.
    using Order = std::vector<int>;

    /// The first row with the text in its name, one of the next four columns or its comment. Without `matchCase` both
    /// sides are turned to upper case. An empty text finds nothing.
    [[nodiscard]] std::optional<int> Search(const ActivityList& list, const Order& order, const QString& text,
                                            bool matchCase);

    /// The next row after `row` (none: from the first on) that the last search finds. It does not begin again at the
    /// top.
    [[nodiscard]] std::optional<int> SearchAgain(const ActivityList& list, const Order& order, std::optional<int> row);

    /// Only a hit can be followed by another: false before the first one and after a miss.
    [[nodiscard]] bool CanSearchAgain() const { return m_found; }

    [[nodiscard]] const QString& Text() const { return m_text; }
    [[nodiscard]] bool MatchCase() const { return m_matchCase; }

  private:
    [[nodiscard]] bool isIn(const QString& text) const;
    [[nodiscard]] bool isInRow(const ActivityList& list, int row) const;

    QString m_text;
    bool m_matchCase = false;
    bool m_found = false;
};

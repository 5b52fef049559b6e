// The columns of the list of activities: which are shown, in what order and how wide. Owns nothing but the user's
// choice; the header does the rest. Column Name is always the first and always shown.
#pragma once

#include "ActivityList.h"
#include <QObject>
#include <array>

class QHeaderView;
class QMenu;

class ActivityColumns final : public QObject {
    Q_OBJECT
  public:
    /// Folding: hidden while no activity has anything in it but "-".
    enum class Choice { Folding, Shown, Hidden };

    ActivityColumns(QHeaderView& header, const ActivityList& list, const StringTable& texts);

    /// Fills the menu with the commands on columns; on `column` too, if one is given.
    void Fill(QMenu& menu, int column = -1);

    /// Widths, places, the user's choice and the sort order, as a text for the settings.
    [[nodiscard]] QString Layout() const;
    /// Restores what Layout returned; any other text changes nothing.
    void RestoreLayout(const QString& layout);

  private:
    void setStandard();
    void fold();
    void move(int column, int steps);
    [[nodiscard]] int neighbour(int column, int steps) const;
    void popUp(const QPoint& at);

    QHeaderView& m_header;
    const ActivityList& m_list;
    const StringTable& m_texts;
    std::array<Choice, ActivityList::ColumnCount> m_choices{};
};

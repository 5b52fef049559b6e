#include "ActivityColumns.h"

#include "StringTable.h"
#include <QFontMetrics>
#include <QHeaderView>
#include <QMenu>
#include <algorithm>

namespace {

constexpr int mostWidth = 4000; // pixels

using Choice = ActivityColumns::Choice;

struct Standard {
    ActivityList::Column column;
    int characters; ///< of average width: together with the ones before it, what fits the window's first size
    Choice choice;
};

/// In the order on the screen. First what one looks for: what is done with which folders, how it stands, when it ran.
constexpr std::array<Standard, ActivityList::ColumnCount> standards{{{ActivityList::Name, 18, Choice::Shown},
                                                                     {ActivityList::Source, 16, Choice::Shown},
                                                                     {ActivityList::Destination, 16, Choice::Shown},
                                                                     {ActivityList::Status, 17, Choice::Shown},
                                                                     {ActivityList::LastRun, 23, Choice::Shown},
                                                                     {ActivityList::Count, 8, Choice::Shown},
                                                                     {ActivityList::Schedule, 36, Choice::Shown},
                                                                     {ActivityList::Extensions, 14, Choice::Shown},
                                                                     {ActivityList::LogFile, 22, Choice::Folding},
                                                                     {ActivityList::Executable, 22, Choice::Folding},
                                                                     {ActivityList::NextRun, 23, Choice::Hidden}}};

/// Layouts were stored without the last column before there was one, and still are while it is not used.
constexpr int formerColumns = ActivityList::ColumnCount - 1;

bool mayFold(int column) {
    return std::any_of(standards.begin(), standards.end(),
                       [&](const Standard& one) { return one.column == column && one.choice == Choice::Folding; });
}

bool isEmpty(const ActivityList& list, int column) {
    for (int row = 0; row < list.Rows(); ++row)
        if (list.data(list.index(row, column), Qt::DisplayRole).toString() != u"-")
            return false;
    return list.Rows() > 0;
}

} // namespace

ActivityColumns::ActivityColumns(QHeaderView& header, const ActivityList& list, const StringTable& texts)
    : QObject(&header), m_header(header), m_list(list), m_texts(texts) {
    header.setStretchLastSection(false);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setSectionsMovable(true);
    header.setFirstSectionMovable(false);
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&header, &QWidget::customContextMenuRequested, this, &ActivityColumns::popUp);
    connect(&list, &ActivityList::Refilled, this, &ActivityColumns::fold);
    setStandard();
}

void ActivityColumns::setStandard() {
    const int character = m_header.fontMetrics().averageCharWidth();
    for (int place = 0; place < ActivityList::ColumnCount; ++place) {
        const Standard& standard = standards[static_cast<std::size_t>(place)];
        m_choices[standard.column] = standard.choice;
        m_header.moveSection(m_header.visualIndex(standard.column), place);
        m_header.showSection(standard.column); // a hidden one takes no width
        m_header.resizeSection(standard.column, standard.characters * character);
    }
    fold();
}

void ActivityColumns::fold() {
    for (int column = 0; column < ActivityList::ColumnCount; ++column) {
        const Choice choice = m_choices[static_cast<std::size_t>(column)];
        m_header.setSectionHidden(column,
                                  choice == Choice::Hidden || (choice == Choice::Folding && isEmpty(m_list, column)));
    }
}

/// The place of the next shown column in this direction; -1 when there is none that it may change places with.
int ActivityColumns::neighbour(int column, int steps) const {
    for (int place = m_header.visualIndex(column) + steps; place > 0 && place < ActivityList::ColumnCount;
         place += steps)
        if (!m_header.isSectionHidden(m_header.logicalIndex(place)))
            return place;
    return -1;
}

void ActivityColumns::Fill(QMenu& menu, int column) {
    menu.clear();
    for (int place = 1; place < ActivityList::ColumnCount; ++place) {
        const int each = m_header.logicalIndex(place);
        QAction* action = menu.addAction(m_list.headerData(each, Qt::Horizontal, Qt::DisplayRole).toString());
        action->setCheckable(true);
        action->setChecked(!m_header.isSectionHidden(each));
        connect(action, &QAction::triggered, this, [this, each](bool shown) {
            m_choices[static_cast<std::size_t>(each)] = shown ? Choice::Shown : Choice::Hidden;
            fold();
        });
    }
    menu.addSeparator();
    if (column > 0) {
        const auto addMove = [&](Text text, int steps) {
            QAction* action = menu.addAction(m_texts[text], this, [this, column, steps] { move(column, steps); });
            action->setEnabled(neighbour(column, steps) >= 0);
        };
        addMove(Text::MoveColumnLeft, -1);
        addMove(Text::MoveColumnRight, 1);
        menu.addSeparator();
    }
    menu.addAction(m_texts[Text::StandardColumns], this, &ActivityColumns::setStandard);
}

void ActivityColumns::move(int column, int steps) {
    if (const int place = neighbour(column, steps); place >= 0)
        m_header.moveSection(m_header.visualIndex(column), place);
}

void ActivityColumns::popUp(const QPoint& at) {
    auto* menu = new QMenu(&m_header);
    menu->setObjectName(QStringLiteral("mnuColumn"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Fill(*menu, m_header.logicalIndexAt(at));
    menu->popup(m_header.mapToGlobal(at));
}

QString ActivityColumns::Layout() const {
    QStringList parts;
    const bool isLastUsed = m_choices[ActivityList::NextRun] != Choice::Hidden ||
                            m_header.visualIndex(ActivityList::NextRun) != ActivityList::NextRun;
    const int columns = isLastUsed ? ActivityList::ColumnCount : formerColumns;
    for (int column = 0; column < columns; ++column) {
        parts.append(QStringLiteral("%1:%2:%3")
                         .arg(m_header.sectionSize(column)) // 0 for a hidden one
                         .arg(m_header.visualIndex(column))
                         .arg(static_cast<int>(m_choices[static_cast<std::size_t>(column)])));
    }
    parts.append(QString::number(m_header.sortIndicatorSection()));
    parts.append(QString::number(static_cast<int>(m_header.sortIndicatorOrder())));
    return parts.join(u',');
}

void ActivityColumns::RestoreLayout(const QString& layout) {
    const QStringList parts = layout.split(u',');
    const auto columns = static_cast<int>(parts.size()) - 2;
    const bool hasLast = columns == ActivityList::ColumnCount && parts[ActivityList::NextRun].contains(u':');
    if (columns != formerColumns && !hasLast)
        return;
    QList<int> columnAt(columns, -1);
    for (int column = 0; column < columns; ++column) {
        const QStringList values = parts[column].split(u':');
        const int width = values.first().toInt();
        if (width >= m_header.minimumSectionSize() && width <= mostWidth)
            m_header.resizeSection(column, width);
        bool isNumber = false;
        const int place = values.value(1).toInt(&isNumber);
        if (isNumber && place >= 0 && place < columns)
            columnAt[place] = column;
        const int choice = values.value(2).toInt(&isNumber);
        if (isNumber && column != ActivityList::Name && choice >= (mayFold(column) ? 0 : 1) && choice <= 2)
            m_choices[static_cast<std::size_t>(column)] = static_cast<Choice>(choice);
    }
    if (columnAt.first() == ActivityList::Name && !columnAt.contains(-1))
        for (int place = 0; place < columns; ++place)
            m_header.moveSection(m_header.visualIndex(columnAt[place]), place);
    bool isNumber = false;
    const int sorted = parts[columns].toInt(&isNumber);
    if (isNumber && sorted >= -1 && sorted < columns)
        m_header.setSortIndicator(sorted, parts.last() == u"1" ? Qt::DescendingOrder : Qt::AscendingOrder);
    fold();
}

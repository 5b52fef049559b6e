#include "ActivityListView.h"

#include "ActivityList.h"
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <algorithm>

namespace {

// In average characters of the view's font.
constexpr int ColumnCharacters[ActivityList::ColumnCount] = {22, 30, 30, 36, 28, 10, 22, 22, 14, 20};

/// Gives the rows some air and shortens paths in their middle, where they tell least.
class RowDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 4);
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        switch (index.column()) {
        case ActivityList::Source:
        case ActivityList::Destination:
        case ActivityList::LogFile:
        case ActivityList::Executable:
            option->textElideMode = Qt::ElideMiddle;
            break;
        default:
            break;
        }
    }
};

} // namespace

ActivityListView::ActivityListView(ActivityList& list, QWidget* parent) : QTreeView(parent), m_list(list) {
    setObjectName(QStringLiteral("lvwActivities"));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setItemDelegate(new RowDelegate(this));
    setContextMenuPolicy(Qt::CustomContextMenu);
    setModel(&list);
    setColumnWidths();
    connect(&list, &QAbstractItemModel::modelAboutToBeReset, this, &ActivityListView::keepSelection);
    connect(&list, &QAbstractItemModel::modelReset, this, &ActivityListView::restoreSelection);
}

void ActivityListView::setColumnWidths() {
    header()->setStretchLastSection(false);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const int character = fontMetrics().averageCharWidth();
    for (int column = 0; column < ActivityList::ColumnCount; ++column)
        setColumnWidth(column, std::max(ColumnCharacters[column] * character, header()->sectionSizeHint(column)));
}

QString ActivityListView::CurrentName() const {
    const QModelIndex current = currentIndex();
    if (current.isValid() && selectionModel()->isRowSelected(current.row()))
        return m_list.NameAt(current.row());
    const QStringList selected = SelectedNames();
    return selected.isEmpty() ? QString() : selected.first();
}

QStringList ActivityListView::SelectedNames() const {
    QModelIndexList rows = selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QStringList names;
    for (const QModelIndex& row : rows)
        names.append(m_list.NameAt(row.row()));
    return names;
}

void ActivityListView::SelectRow(int row) {
    const QModelIndex index = m_list.index(row, ActivityList::Name);
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void ActivityListView::keepSelection() {
    m_keptSelection = SelectedNames();
    m_keptCurrent = currentIndex().isValid() ? m_list.NameAt(currentIndex().row()) : QString();
}

void ActivityListView::restoreSelection() {
    const auto indexOf = [this](const QString& name) {
        const std::optional<int> row = m_list.RowOf(name);
        return row ? m_list.index(*row, 0) : QModelIndex();
    };
    if (const QModelIndex current = indexOf(m_keptCurrent); current.isValid()) {
        selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
        scrollTo(current);
    }
    QItemSelection selection;
    for (const QString& name : m_keptSelection) {
        if (const QModelIndex index = indexOf(name); index.isValid())
            selection.select(index, index);
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

bool ActivityListView::isOnCheckBox(const QModelIndex& index, const QPoint& position) const {
    if (index.column() != ActivityList::Name)
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this).contains(position);
}

void ActivityListView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool opens =
        event->button() == Qt::LeftButton && index.isValid() && !isOnCheckBox(index, event->position().toPoint());
    const QString name = opens ? m_list.NameAt(index.row()) : QString();
    QTreeView::mouseDoubleClickEvent(event);
    if (opens)
        Q_EMIT RowDoubleClicked(name);
}

void ActivityListView::keyPressEvent(QKeyEvent* event) {
    // The box belongs to the row: it follows the space bar wherever in the row the last click was.
    if (event->key() == Qt::Key_Space && currentIndex().column() > 0)
        selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    QTreeView::keyPressEvent(event);
}

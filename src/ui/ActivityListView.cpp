#include "ActivityListView.h"

#include "ActivityColumns.h"
#include "ActivityList.h"
#include "NextRunLook.h"
#include "ResultLook.h"
#include "modForeignText.h"
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>

namespace {

bool isPath(int column) {
    switch (column) {
    case ActivityList::Source:
    case ActivityList::Destination:
    case ActivityList::LogFile:
    case ActivityList::Executable:
        return true;
    default:
        return false;
    }
}

/// Makes the rows a little higher and elides paths in the middle, where they say least. The tooltip of a path that is
/// cut begins with the whole of it.
class RowDelegate final : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 4);
    }

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const bool isCut = isPath(index.column()) && sizeHint(option, index).width() > option.rect.width();
        if (event->type() != QEvent::ToolTip || !isCut)
            return QStyledItemDelegate::helpEvent(event, view, option, index);
        const QString comment = index.data(Qt::ToolTipRole).toString();
        const QString path = u"<p style=\"white-space:pre-wrap\">" + index.data().toString().toHtmlEscaped() + u"</p>";
        QToolTip::showText(event->globalPos(), path + comment, view, option.rect);
        return true;
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (isPath(index.column()))
            option->textElideMode = Qt::ElideMiddle;
    }
};

/// "dd.MM.yyyy HH:mm:ss" as a text that sorts by time; "-" comes first.
QString sortable(const QString& time) {
    return time.mid(6, 4) + time.mid(3, 2) + time.left(2) + time.mid(10);
}

/// The order on the screen. Activities still run in the order of the file.
class ActivityOrder final : public QSortFilterProxyModel {
  public:
    ActivityOrder(const ResultLook& results, const NextRunLook& nextRuns, QObject* parent)
        : QSortFilterProxyModel(parent), m_results(results), m_nextRuns(nextRuns) {}

    void setSourceModel(QAbstractItemModel* list) override;

    /// Texts as they may be shown.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  protected:
    /// Counts by number, times by date, everything else as a reader of the user's language expects.
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

  private:
    [[nodiscard]] QVariant resultAt(const QModelIndex& index, int role) const;
    [[nodiscard]] QVariant nextRunAt(const QModelIndex& index, int role) const;

    const ResultLook m_results; ///< a copy: it is asked even while the window is destroyed
    NextRunLook m_nextRuns;
};

void ActivityOrder::setSourceModel(QAbstractItemModel* list) {
    connect(list, &QAbstractItemModel::modelAboutToBeReset, this, [this] { m_nextRuns.Forget(); });
    QSortFilterProxyModel::setSourceModel(list);
}

/// A comment with more below it.
QString withComment(const QVariant& comment, const QString& sentence) {
    return comment.toString() + u"<p style=\"white-space:pre-wrap\">" + sentence.toHtmlEscaped() + u"</p>";
}

QVariant ActivityOrder::nextRunAt(const QModelIndex& index, int role) const {
    const int row = mapToSource(index).row();
    if (role == Qt::DisplayRole)
        return m_nextRuns.Shown(row);
    const QString explanation = m_nextRuns.Explanation(row);
    const QVariant comment = QSortFilterProxyModel::data(index, role);
    if (role == Qt::AccessibleDescriptionRole)
        return explanation;
    return explanation.isEmpty() ? comment : withComment(comment, explanation);
}

/// The last result, beside the name: a picture, and what it means.
QVariant ActivityOrder::resultAt(const QModelIndex& index, int role) const {
    const QString name = QSortFilterProxyModel::data(index, Qt::DisplayRole).toString();
    if (role == Qt::DecorationRole)
        return m_results.Icon(name);
    const QString sentence = m_results.Sentence(name);
    if (role != Qt::ToolTipRole)
        return sentence;
    return withComment(QSortFilterProxyModel::data(index, role), sentence);
}

QVariant ActivityOrder::headerData(int section, Qt::Orientation orientation, int role) const {
    // The whole caption of a narrow column.
    return QSortFilterProxyModel::headerData(section, orientation, role == Qt::ToolTipRole ? Qt::DisplayRole : role);
}

QVariant ActivityOrder::data(const QModelIndex& index, int role) const {
    const bool explains = role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole;
    QVariant value;
    if (index.column() == ActivityList::Name && (explains || role == Qt::DecorationRole))
        value = resultAt(index, role);
    else if (index.column() == ActivityList::NextRun && (explains || role == Qt::DisplayRole))
        value = nextRunAt(index, role);
    else
        value = QSortFilterProxyModel::data(index, role);
    if (role == Qt::DisplayRole)
        return modForeignText::OneLine(value.toString());
    if (role == Qt::ToolTipRole && value.isValid())
        return modForeignText::Lines(value.toString());
    return value;
}

bool ActivityOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
    const QString a = left.data().toString();
    const QString b = right.data().toString();
    switch (left.column()) {
    case ActivityList::Count:
        return a.toInt() < b.toInt();
    case ActivityList::LastRun:
        return sortable(a) < sortable(b);
    case ActivityList::NextRun:
        return m_nextRuns.Order(left.row()) < m_nextRuns.Order(right.row());
    default:
        return a.localeAwareCompare(b) < 0;
    }
}

ActivityOrder* makeOrder(ActivityList& list, const ResultLook& results, const NextRunLook& nextRuns, QTreeView& view) {
    auto* order = new ActivityOrder(results, nextRuns, &view);
    order->setSourceModel(&list);
    order->setDynamicSortFilter(true);
    view.setModel(order);
    return order;
}

} // namespace

ActivityListView::ActivityListView(ActivityList& list, const ResultLook& results, const NextRunLook& nextRuns,
                                   const StringTable& texts, QWidget* parent)
    : QTreeView(parent), m_list(list), m_order(*makeOrder(list, results, nextRuns, *this)),
      m_columns(*new ActivityColumns(*header(), list, texts)) {
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
    setAccessibleName(list.headerData(ActivityList::Name, Qt::Horizontal, Qt::DisplayRole).toString());
    header()->setSortIndicatorClearable(true); // back to the order of the file
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    connect(&m_order, &QAbstractItemModel::modelAboutToBeReset, this, &ActivityListView::keepSelection);
    connect(&m_order, &QAbstractItemModel::modelReset, this, &ActivityListView::restoreSelection);
    m_nextRuns.setInterval(std::chrono::seconds(1));
    connect(&m_nextRuns, &QTimer::timeout, this, &ActivityListView::showNextRuns);
    connect(header(), &QHeaderView::sectionResized, this, &ActivityListView::followNextRuns); // shown or hidden, too
}

void ActivityListView::followNextRuns() {
    const bool isShown = isVisible() && !header()->isSectionHidden(ActivityList::NextRun);
    if (isShown != m_nextRuns.isActive())
        isShown ? m_nextRuns.start() : m_nextRuns.stop();
}

/// Only what is painted is found out.
void ActivityListView::showNextRuns() {
    viewport()->update(columnViewportPosition(ActivityList::NextRun), 0, columnWidth(ActivityList::NextRun),
                       viewport()->height());
}

void ActivityListView::showEvent(QShowEvent* event) {
    QTreeView::showEvent(event);
    followNextRuns();
}

void ActivityListView::hideEvent(QHideEvent* event) {
    QTreeView::hideEvent(event);
    followNextRuns();
}

QString ActivityListView::nameAt(const QModelIndex& shown) const {
    return m_list.NameAt(m_order.mapToSource(shown).row());
}

QModelIndex ActivityListView::indexOf(const QString& name) const {
    const std::optional<int> row = m_list.RowOf(name);
    return row ? m_order.mapFromSource(m_list.index(*row, 0)) : QModelIndex();
}

QString ActivityListView::CurrentName() const {
    const QModelIndex current = currentIndex();
    if (current.isValid() && selectionModel()->isRowSelected(current.row()))
        return nameAt(current);
    const QStringList selected = SelectedNames();
    return selected.isEmpty() ? QString() : selected.first();
}

QStringList ActivityListView::SelectedNames() const {
    std::vector<int> rows;
    for (const QModelIndex& shown : selectionModel()->selectedRows())
        rows.push_back(m_order.mapToSource(shown).row());
    std::sort(rows.begin(), rows.end());
    QStringList names;
    for (const int row : rows)
        names.append(m_list.NameAt(row));
    return names;
}

void ActivityListView::Select(const QString& name) {
    const QModelIndex index = indexOf(name);
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

std::vector<int> ActivityListView::ShownRows() const {
    std::vector<int> rows;
    for (int shown = 0; shown < m_order.rowCount(); ++shown)
        rows.push_back(m_order.mapToSource(m_order.index(shown, 0)).row());
    return rows;
}

QString ActivityListView::NeighbourOf(const QString& name) const {
    const QModelIndex index = indexOf(name);
    const QModelIndex below = index.siblingAtRow(index.row() + 1);
    const QModelIndex neighbour = below.isValid() ? below : index.siblingAtRow(index.row() - 1);
    return neighbour.isValid() ? nameAt(neighbour) : QString();
}

void ActivityListView::ShowResult(const QString& name) {
    if (const QModelIndex index = indexOf(name); index.isValid())
        update(index);
}

void ActivityListView::keepSelection() {
    m_keptSelection = SelectedNames();
    m_keptCurrent = currentIndex().isValid() ? nameAt(currentIndex()) : QString();
}

void ActivityListView::restoreSelection() {
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
    const QString name = opens ? nameAt(index) : QString();
    QTreeView::mouseDoubleClickEvent(event);
    if (opens)
        Q_EMIT RowOpened(name);
}

void ActivityListView::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && event->modifiers() == Qt::NoModifier) {
        if (const QString name = CurrentName(); !name.isEmpty())
            Q_EMIT RowOpened(name);
        return;
    }
    // Space toggles the row's box, whichever column was clicked last.
    if (event->key() == Qt::Key_Space && currentIndex().column() > 0)
        selectionModel()->setCurrentIndex(currentIndex().siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    QTreeView::keyPressEvent(event);
    // Qt selects a row when the current one changes, but a list's only row is current from the start.
    const bool moves = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down || event->key() == Qt::Key_Home ||
                       event->key() == Qt::Key_End;
    if (moves && event->modifiers() == Qt::NoModifier && CurrentName().isEmpty() && currentIndex().isValid())
        Select(nameAt(currentIndex()));
}

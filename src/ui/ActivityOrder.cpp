#include "ActivityOrder.h"

#include "ActivityList.h"
#include "modForeignText.h"

namespace {

/// "dd.MM.yyyy HH:mm:ss" as a text that sorts by time; "-" comes first.
QString sortable(const QString& time) {
    return time.mid(6, 4) + time.mid(3, 2) + time.left(2) + time.mid(10);
}

} // namespace

QVariant ActivityOrder::data(const QModelIndex& index, int role) const {
    QVariant value = QSortFilterProxyModel::data(index, role);
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
    default:
        return a.localeAwareCompare(b) < 0;
    }
}

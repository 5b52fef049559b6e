// The order in which the list is shown. It changes the view alone: activities run in the order of the file. Owns
// nothing and cannot fail.
#pragma once

#include <QSortFilterProxyModel>

class ActivityOrder final : public QSortFilterProxyModel {
    Q_OBJECT
  public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// Texts as they may be shown.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

  protected:
    /// Counts by number, times by date, everything else as a reader of the user's language expects.
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};

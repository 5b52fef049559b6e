// Shows the list of activities as rows with check boxes, the picture of the last result and eleven columns. Owns the
// sort order and the selection, which it restores by name after a refill.
#pragma once

#include <QStringList>
#include <QTimer>
#include <QTreeView>
#include <vector>

class ActivityColumns;
class ActivityList;
class NextRunLook;
class QSortFilterProxyModel;
class ResultLook;
class StringTable;

class ActivityListView final : public QTreeView {
    Q_OBJECT
  public:
    ActivityListView(ActivityList& list, const ResultLook& results, const NextRunLook& nextRuns,
                     const StringTable& texts, QWidget* parent = nullptr);

    /// The activity that commands on one activity act on: the current row when it is selected, else the first selected
    /// row; "" when no row is selected.
    [[nodiscard]] QString CurrentName() const;

    /// The highlighted activities, in the order of the list, whatever the order on the screen.
    [[nodiscard]] QStringList SelectedNames() const;

    /// Highlights this activity alone and brings it into view. An unknown name changes nothing.
    void Select(const QString& name);

    /// The rows of the list in the order in which they are shown.
    [[nodiscard]] std::vector<int> ShownRows() const;

    /// The activity shown below this one, else the one above; "" when there is no other.
    [[nodiscard]] QString NeighbourOf(const QString& name) const;

    [[nodiscard]] ActivityColumns& Columns() { return m_columns; }

    /// To be called when the activity's result has changed.
    void ShowResult(const QString& name);

  Q_SIGNALS:
    /// A double click on a row, outside its check box, or Enter on a highlighted one.
    void RowOpened(const QString& name);

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void followNextRuns();
    void showNextRuns();
    void keepSelection();
    void restoreSelection();
    [[nodiscard]] bool isOnCheckBox(const QModelIndex& index, const QPoint& position) const;

    [[nodiscard]] QModelIndex indexOf(const QString& name) const;
    [[nodiscard]] QString nameAt(const QModelIndex& shown) const;

    ActivityList& m_list;
    QSortFilterProxyModel& m_order;
    ActivityColumns& m_columns;
    QStringList m_keptSelection;
    QString m_keptCurrent;
    QTimer m_nextRuns; ///< once a second while their column is shown
};

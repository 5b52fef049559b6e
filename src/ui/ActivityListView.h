// Shows the list of activities as rows with check boxes and ten columns. Owns the sort order and the selection, which
// it restores by name after a refill.
#pragma once

#include <QStringList>
#include <QTreeView>
#include <vector>

class ActivityList;
class QSortFilterProxyModel;

class ActivityListView final : public QTreeView {
    Q_OBJECT
  public:
    explicit ActivityListView(ActivityList& list, QWidget* parent = nullptr);

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

    /// Column widths and sort order, as a text for the settings.
    [[nodiscard]] QString Layout() const;
    /// Restores what Layout returned; any other text changes nothing.
    void RestoreLayout(const QString& layout);

  Q_SIGNALS:
    /// A double click on a row, outside its check box, or Enter on a highlighted one.
    void RowOpened(const QString& name);

  protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void setColumnWidths();
    void keepSelection();
    void restoreSelection();
    [[nodiscard]] bool isOnCheckBox(const QModelIndex& index, const QPoint& position) const;

    [[nodiscard]] QModelIndex indexOf(const QString& name) const;
    [[nodiscard]] QString nameAt(const QModelIndex& shown) const;

    ActivityList& m_list;
    QSortFilterProxyModel& m_order;
    QStringList m_keptSelection;
    QString m_keptCurrent;
};

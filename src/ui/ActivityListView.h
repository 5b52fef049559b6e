// Shows the list of activities as rows with check boxes and ten columns. Owns only the selection, which it carries over
// a refill by name. It never fails.
#pragma once

#include <QStringList>
#include <QTreeView>

class ActivityList;

class ActivityListView final : public QTreeView {
    Q_OBJECT
  public:
    explicit ActivityListView(ActivityList& list, QWidget* parent = nullptr);

    /// The activity that commands on one activity act on: the current row when it is selected, else the first selected
    /// row; "" when no row is selected.
    [[nodiscard]] QString CurrentName() const;

    /// The highlighted activities, in list order.
    [[nodiscard]] QStringList SelectedNames() const;

    /// Highlights this row alone and brings it into sight. A row that does not exist changes nothing.
    void SelectRow(int row);

  Q_SIGNALS:
    /// A double click on a row, outside its check box.
    void RowDoubleClicked(const QString& name);

  protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void setColumnWidths();
    void keepSelection();
    void restoreSelection();
    [[nodiscard]] bool isOnCheckBox(const QModelIndex& index, const QPoint& position) const;

    ActivityList& m_list;
    QStringList m_keptSelection;
    QString m_keptCurrent;
};

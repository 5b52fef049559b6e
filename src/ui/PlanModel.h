// A plan as a table: one row for each act. The plan must outlive it; never fails.
#pragma once

#include <QAbstractTableModel>

class StringTable;
struct PlannedAct;
struct RunPlan;

class PlanModel final : public QAbstractTableModel {
  public:
    enum Column { DeedColumn, PathColumn, DestinationColumn, SizeColumn, ReasonColumn };
    static constexpr int ColumnCount = 5;
    /// What a column is sorted by: texts as texts, sizes as numbers.
    static constexpr int SortRole = Qt::UserRole;

    PlanModel(const RunPlan& plan, const StringTable& texts) : m_plan(plan), m_texts(texts) {}

    [[nodiscard]] const PlannedAct& ActAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    [[nodiscard]] QString text(const PlannedAct& act, int column) const;

    const RunPlan& m_plan;
    const StringTable& m_texts;
};

// Which acts of a plan are shown, and in what order. Never fails.
#pragma once

#include "RunPlan.h"
#include <QSortFilterProxyModel>
#include <array>

class PlanModel;

class PlanOrder final : public QSortFilterProxyModel {
  public:
    explicit PlanOrder(PlanModel& model);

    void Show(Deed deed, bool shown);
    /// Only acts with this in a path or in their reason, in whatever letter case; "" for all.
    void SetText(const QString& text);

    [[nodiscard]] std::vector<const PlannedAct*> Shown() const;

  protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

  private:
    PlanModel& m_model;
    std::array<bool, DeedCount> m_shown{};
    QString m_text;
};

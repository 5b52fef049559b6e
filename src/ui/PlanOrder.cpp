#include "PlanOrder.h"

#include "PlanModel.h"

PlanOrder::PlanOrder(PlanModel& model) : m_model(model) {
    setSourceModel(&model);
    setSortRole(PlanModel::SortRole);
    setDynamicSortFilter(false); // the plan never changes
}

void PlanOrder::Show(Deed deed, bool shown) {
    m_shown[static_cast<std::size_t>(deed)] = shown;
    invalidateFilter();
}

void PlanOrder::SetText(const QString& text) {
    m_text = text;
    invalidateFilter();
}

std::vector<const PlannedAct*> PlanOrder::Shown() const {
    std::vector<const PlannedAct*> acts;
    for (int row = 0; row < rowCount(); ++row)
        acts.push_back(&m_model.ActAt(mapToSource(index(row, 0)).row()));
    return acts;
}

bool PlanOrder::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    const PlannedAct& act = m_model.ActAt(row);
    const auto has = [this](const QString& text) { return text.contains(m_text, Qt::CaseInsensitive); };
    return m_shown[static_cast<std::size_t>(act.deed)] &&
           (m_text.isEmpty() || has(act.path) || has(act.destination) || has(act.reason));
}

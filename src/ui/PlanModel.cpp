#include "PlanModel.h"

#include "PlanReport.h"
#include "StringTable.h"
#include "modForeignText.h"
#include <QDir>
#include <QLocale>

namespace {

constexpr std::array<Text, PlanModel::ColumnCount> captions{
    Text::PlanDeedColumn, Text::PlanPathColumn, Text::PlanTargetColumn, Text::PlanSizeColumn, Text::PlanReasonColumn};

/// A directory is told by the separator at its end.
QString shown(const QString& path, bool isFolder) {
    return modForeignText::OneLine(isFolder && !path.isEmpty() ? path + QDir::separator() : path);
}

} // namespace

const PlannedAct& PlanModel::ActAt(int row) const {
    return m_plan.acts[static_cast<std::size_t>(row)];
}

int PlanModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_plan.acts.size());
}

int PlanModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QString PlanModel::text(const PlannedAct& act, int column) const {
    switch (column) {
    case DeedColumn:
        return PlanReport::Word(act.deed, m_texts);
    case PathColumn:
        return shown(act.path, act.isFolder);
    case DestinationColumn:
        return shown(act.destination, act.isFolder);
    case SizeColumn:
        return PlanReport::HasSize(act) ? QLocale().formattedDataSize(static_cast<qint64>(act.facts.size)) : QString();
    case ReasonColumn:
        return modForeignText::OneLine(act.reason);
    default:
        return {};
    }
}

QVariant PlanModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const PlannedAct& act = ActAt(index.row());
    if (role == SortRole && index.column() == SizeColumn)
        return static_cast<qulonglong>(act.facts.size);
    if (role == Qt::DisplayRole || role == SortRole)
        return text(act, index.column());
    if (role == Qt::ToolTipRole) // a long path is cut in its cell
        return QString(u"<p style=\"white-space:pre-wrap\">" + text(act, index.column()).toHtmlEscaped() + u"</p>");
    if (role == Qt::TextAlignmentRole && index.column() == SizeColumn)
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant PlanModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount)
        return {};
    return m_texts[captions[static_cast<std::size_t>(section)]];
}

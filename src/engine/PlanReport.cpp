#include "PlanReport.h"
#include "StringTable.h"
#include "modForeignText.h"

#include <QJsonArray>
#include <QLocale>

namespace {

struct DeedRow {
    Text word;
    const char* key;
};
/// By Deed.
constexpr std::array<DeedRow, DeedCount> deeds{{{Text::DeedCopy, "copy"},
                                                {Text::DeedMove, "move"},
                                                {Text::DeedReplace, "replace"},
                                                {Text::DeedDelete, "delete"},
                                                {Text::DeedAsk, "ask"},
                                                {Text::DeedLeaveAlone, "leave alone"},
                                                {Text::DeedFail, "fail"}}};

const DeedRow& rowOf(Deed deed) {
    return deeds[static_cast<std::size_t>(deed)];
}

/// Quoted always. A spreadsheet takes what begins with one of these for a formula; a blank in front keeps it a text.
QByteArray csvField(QString text) {
    if (!text.isEmpty() && QStringLiteral("=+-@").contains(text.front()))
        text.prepend(u' ');
    return '"' + text.replace(u'"', QStringLiteral("\"\"")).toUtf8() + '"';
}

} // namespace

bool PlanReport::HasSize(const PlannedAct& act) {
    return !act.isFolder && act.deed != Deed::LeaveAlone && act.deed != Deed::Fail;
}

PlanReport::Totals PlanReport::TotalsOf(const RunPlan& plan) {
    Totals totals;
    for (const PlannedAct& act : plan.acts) {
        if (act.isFolder)
            continue;
        Total& total = totals[static_cast<std::size_t>(act.deed)];
        ++total.files;
        total.bytes += act.facts.size;
    }
    return totals;
}

QString PlanReport::Word(Deed deed, const StringTable& texts) {
    return texts[rowOf(deed).word];
}

QString PlanReport::Line(const PlannedAct& act, const StringTable& texts) {
    if (!act.reason.isEmpty())
        return modForeignText::OneLine(Word(act.deed, texts) + u": " + act.reason);
    QString line = Word(act.deed, texts) + u": " + act.path;
    if (!act.destination.isEmpty())
        line += u" -> " + act.destination;
    if (HasSize(act))
        line += u" (" + QLocale().formattedDataSize(static_cast<qint64>(act.facts.size)) + u')';
    return modForeignText::OneLine(line);
}

QString PlanReport::Summary(const RunPlan& plan, const StringTable& texts) {
    const Totals totals = TotalsOf(plan);
    const QLocale locale;
    QString text = texts[Text::PlanTotals];
    text.replace(QStringLiteral("%1"), plan.run.name);
    for (std::size_t deed = 0; deed < DeedCount; ++deed)
        text.replace(u'%' + QString::number(deed + 2), locale.toString(static_cast<qulonglong>(totals[deed].files)));
    const auto bytesOf = [&](Deed deed) { return totals[static_cast<std::size_t>(deed)].bytes; };
    const std::uint64_t written = bytesOf(Deed::Copy) + bytesOf(Deed::Move) + bytesOf(Deed::Replace);
    return text.replace(QStringLiteral("%9"), locale.formattedDataSize(static_cast<qint64>(written)));
}

QByteArray PlanReport::Csv(const std::vector<const PlannedAct*>& acts, const StringTable& texts) {
    QByteArray csv = "\"deed\",\"path\",\"destination\",\"bytes\",\"reason\"\r\n";
    for (const PlannedAct* act : acts) {
        csv += csvField(Word(act->deed, texts)) + ',' + csvField(act->path) + ',' + csvField(act->destination) + ',';
        csv += (HasSize(*act) ? QByteArray::number(static_cast<qulonglong>(act->facts.size)) : QByteArray()) + ',';
        csv += csvField(act->reason) + "\r\n";
    }
    return csv;
}

QJsonObject PlanReport::Json(const RunPlan& plan) {
    QJsonArray acts;
    for (const PlannedAct& act : plan.acts) {
        QJsonObject one{{QStringLiteral("deed"), QLatin1String(rowOf(act.deed).key)},
                        {QStringLiteral("path"), act.path}};
        if (!act.destination.isEmpty())
            one[u"destination"] = act.destination;
        if (act.isFolder)
            one[u"folder"] = true;
        if (HasSize(act))
            one[u"bytes"] = static_cast<qint64>(act.facts.size);
        if (!act.reason.isEmpty())
            one[u"reason"] = act.reason;
        acts.append(one);
    }
    QJsonObject totals;
    const Totals counted = TotalsOf(plan);
    for (std::size_t deed = 0; deed < DeedCount; ++deed)
        totals[QLatin1String(deeds[deed].key)] =
            QJsonObject{{QStringLiteral("files"), static_cast<qint64>(counted[deed].files)},
                        {QStringLiteral("bytes"), static_cast<qint64>(counted[deed].bytes)}};
    return {{QStringLiteral("activity"), plan.run.name}, {QStringLiteral("complete"), plan.IsComplete()},
            {QStringLiteral("held"), plan.outcome.held}, {QStringLiteral("reason"), plan.outcome.reason},
            {QStringLiteral("totals"), totals},          {QStringLiteral("acts"), acts}};
}

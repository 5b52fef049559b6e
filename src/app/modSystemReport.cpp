#include "modSystemReport.h"

#include "Program.h"
#include "modNativePath.h"
#include <QLocale>
#include <algorithm>
#include <utility>
#include <vector>

QString modSystemReport::Text(const SystemFacts& facts, Program& program, const QStringList& displays) {
    const ProgramPlaces& places = program.Services().places;
    std::vector<std::pair<int, QString>> rows{
        {533, QStringLiteral("Kalvenor Pro " KALVENOR_VERSION)},
        {534, QLatin1String(qVersion())},
        {535, facts.system},
        {536, facts.kernel},
        {537, facts.architecture},
        {538, QString::number(facts.processors)},
        {539, QLocale::system().formattedDataSize(facts.memory)},
    };
    for (const QString& display : displays)
        rows.emplace_back(540, display);
    rows.emplace_back(541, modNativePath::ToText(places.programFolder));
    rows.emplace_back(542, modNativePath::ToText(places.userDataFolder));
    rows.emplace_back(543, program.File().CurrentPath());
    rows.emplace_back(544, program.Options().LoggingPath);

    const StringTable& texts = program.Texts();
    qsizetype width = 0;
    for (const auto& [label, value] : rows)
        width = std::max(width, texts.Text(label).size());
    QString report;
    for (const auto& [label, value] : rows) {
        const QString begin = texts.Text(label) + u':';
        report += begin.leftJustified(width + 3) + (value.isEmpty() ? QStringLiteral("-") : value) + u'\n';
    }
    return report;
}

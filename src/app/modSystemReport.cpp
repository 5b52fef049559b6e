#include "modSystemReport.h"

#include "Program.h"
#include "modNativePath.h"
#include <QLocale>
#include <algorithm>
#include <utility>
#include <vector>

QString modSystemReport::Text(const SystemFacts& facts, Program& program, const QStringList& displays) {
    const ProgramPlaces& places = program.Services().places;
    std::vector<std::pair<::Text, QString>> rows{
        {Text::ReportProgram, QStringLiteral("Kalvenor Pro " KALVENOR_VERSION)},
        {Text::ReportQt, QLatin1String(qVersion())},
        {Text::ReportSystem, facts.system},
        {Text::ReportKernel, facts.kernel},
        {Text::ReportArchitecture, facts.architecture},
        {Text::ReportProcessors, QString::number(facts.processors)},
        {Text::ReportMemory, QLocale::system().formattedDataSize(facts.memory)},
    };
    for (const QString& display : displays)
        rows.emplace_back(Text::ReportDisplay, display);
    rows.emplace_back(Text::ReportProgramFolder, modNativePath::ToText(places.programFolder));
    rows.emplace_back(Text::ReportDataFolder, modNativePath::ToText(places.userDataFolder));
    rows.emplace_back(Text::ReportActivityFile, program.File().CurrentPath());
    rows.emplace_back(Text::ReportLogFile, program.Options().LoggingPath);

    const StringTable& texts = program.Texts();
    qsizetype width = 0;
    for (const auto& [label, value] : rows)
        width = std::max(width, texts[label].size());
    QString report;
    for (const auto& [label, value] : rows) {
        const QString begin = texts[label] + u':';
        report += begin.leftJustified(width + 3) + (value.isEmpty() ? QStringLiteral("-") : value) + u'\n';
    }
    return report;
}

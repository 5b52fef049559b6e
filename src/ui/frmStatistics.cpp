#include "frmStatistics.h"

#include "FormParts.h"
#include "RunChart.h"
#include "RunSummary.h"
#include "StringTable.h"
#include "modForeignText.h"
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

namespace {

QString timeOf(const QDateTime& time) {
    return QLocale().toString(time.toLocalTime(), QLocale::ShortFormat);
}

struct MeasureRow {
    Text caption;
    double (*value)(const PastRun&);
    QString (*words)(double);
};
QString number(double value) {
    return QLocale().toString(static_cast<qulonglong>(value));
}
/// In the order of cboMeasure.
constexpr std::array<MeasureRow, 3> measures{
    {{Text::MeasureFiles,
      [](const PastRun& run) { return static_cast<double>(run.result.done.Files() + run.result.done.deleted); },
      &number},
     {Text::MeasureSeconds, [](const PastRun& run) { return static_cast<double>(run.result.took.count()); }, &number},
     {Text::MeasureBytes, [](const PastRun& run) { return static_cast<double>(run.result.done.bytes); },
      [](double value) { return QLocale().formattedDataSize(static_cast<qint64>(value)); }}}};

} // namespace

frmStatistics::frmStatistics(const QString& activity, const std::vector<PastRun>& runs, const StringTable& texts,
                             QWidget* parent)
    : QDialog(parent), m_texts(texts) {
    setObjectName(QStringLiteral("frmStatistics"));
    setWindowTitle(texts[Text::StatisticsTitle].arg(modForeignText::OneLine(activity)));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* all = new QVBoxLayout(this);
    QLabel* totalsLabel = FormParts::PlainText("lblTotals", runs.empty() ? texts[Text::StatisticsNone] : totals(runs));
    totalsLabel->setWordWrap(true);
    all->addWidget(totalsLabel);
    if (!runs.empty())
        all->addLayout(makeChart(runs), 1);
    auto* buttons = new QDialogButtonBox;
    FormParts::AddButton(*buttons, QDialogButtonBox::Ok, "cmdOK", texts[Text::Ok])->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    all->addWidget(buttons);
    if (m_chart != nullptr)
        m_chart->setFocus();
}

QLayout* frmStatistics::makeChart(const std::vector<PastRun>& runs) {
    auto* part = new QVBoxLayout;
    auto* measure = new QComboBox;
    measure->setObjectName(QStringLiteral("cboMeasure"));
    for (const MeasureRow& row : measures)
        measure->addItem(m_texts[row.caption]);
    measure->setAccessibleName(m_texts[Text::Measure]);
    auto* line = new QHBoxLayout;
    line->addWidget(FormParts::Label(m_texts[Text::Measure], *measure));
    line->addWidget(measure);
    line->addStretch();
    part->addLayout(line);
    m_chart = new RunChart(runs, [this](const PastRun& run) { return words(run); });
    FormParts::Name(*m_chart, "chtRuns", m_texts[Text::RunChart]);
    part->addWidget(m_chart, 1);
    QLabel* run = FormParts::PlainText("lblRun", m_chart->ChosenInWords());
    run->setWordWrap(true);
    run->setTextInteractionFlags(Qt::TextSelectableByMouse);
    run->setMinimumHeight(run->fontMetrics().lineSpacing() * 3); // the chart keeps its height
    run->setAlignment(Qt::AlignTop);
    part->addWidget(run);
    connect(m_chart, &RunChart::Chosen, run, [this, run] { run->setText(m_chart->ChosenInWords()); });
    connect(measure, &QComboBox::currentIndexChanged, this, &frmStatistics::showMeasure);
    showMeasure(0);
    return part;
}

void frmStatistics::showMeasure(int row) {
    const MeasureRow& measure = measures[static_cast<std::size_t>(row)];
    m_chart->SetMeasure({measure.value, measure.words});
}

QString frmStatistics::words(const PastRun& run) const {
    const QLocale locale;
    const QString sentence = RunSummary::Sentence(run.result, m_texts);
    if (run.runs > 1)
        return m_texts[Text::StatisticsRuns].arg(locale.toString(static_cast<qlonglong>(run.runs)), timeOf(run.since),
                                                 timeOf(run.result.at), sentence);
    return m_texts[Text::StatisticsRun].arg(timeOf(run.result.at), sentence);
}

QString frmStatistics::totals(const std::vector<PastRun>& runs) const {
    const QLocale locale;
    qlonglong all = 0;
    qlonglong failed = 0;
    qulonglong files = 0;
    qint64 bytes = 0;
    for (const PastRun& run : runs) {
        all += run.runs;
        failed += run.result.ending == RunEnding::Failed ? run.runs : 0;
        files += run.result.done.Files();
        bytes += static_cast<qint64>(run.result.done.bytes);
    }
    return m_texts[Text::StatisticsTotals].arg(locale.toString(all), timeOf(runs.front().since),
                                               locale.toString(failed), locale.toString(files),
                                               locale.formattedDataSize(bytes));
}

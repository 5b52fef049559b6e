#include "StatusPanel.h"

#include "Program.h"
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QStatusBar>

namespace {

constexpr std::chrono::milliseconds lookInterval{200};
constexpr int barWidth = 90; // pixels

QLabel* addLabel(QStatusBar& bar, const char* name) {
    auto* label = new QLabel(&bar);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setContentsMargins(6, 0, 6, 0);
    bar.addPermanentWidget(label);
    return label;
}

} // namespace

StatusPanel::StatusPanel(QStatusBar& bar, Program& program)
    : m_bar(bar), m_program(program), m_running(addLabel(bar, "lblRunning")), m_progress(new QProgressBar(&bar)),
      m_count(nullptr) {
    bar.setObjectName(QStringLiteral("stbMain"));
    // A run does not know its total in advance, so the bar only shows that work goes on.
    m_progress->setObjectName(QStringLiteral("prgRun"));
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    m_progress->setFixedWidth(barWidth);
    m_progress->setMaximumHeight(m_running->sizeHint().height());
    m_progress->setAccessibleName(program.Texts()[Text::MonitoringInProcess]);
    bar.addPermanentWidget(m_progress);
    m_count = addLabel(bar, "lblCount");
    m_timer.setInterval(lookInterval);
    connect(&m_timer, &QTimer::timeout, this, &StatusPanel::look);
    // A run begins by setting the status of its row; until then no timer wakes the program.
    connect(&program.List(), &ActivityList::dataChanged, this, [this] {
        if (!m_timer.isActive())
            look();
    });
    look();
}

void StatusPanel::Say(const QString& text) {
    text.isEmpty() ? m_bar.clearMessage() : m_bar.showMessage(text);
}

void StatusPanel::ShowCount() {
    const ActivityList& list = m_program.List();
    int active = 0;
    for (int row = 0; row < list.Rows(); ++row)
        active += list.IsChecked(row) ? 1 : 0;
    m_count->setText(m_program.Texts()[Text::ActivityCount].arg(list.Rows()).arg(active));
}

void StatusPanel::look() {
    const RunProgress& progress = m_program.State().Progress();
    const bool isRunning = !progress.activity.isEmpty();
    if (isRunning != m_timer.isActive())
        isRunning ? m_timer.start() : m_timer.stop();
    m_progress->setVisible(isRunning);
    m_running->setVisible(isRunning);
    if (!isRunning)
        return;
    const QLocale locale;
    m_running->setText(
        m_program.Texts()[Text::FilesAndSize].arg(progress.activity, locale.toString(progress.files),
                                                  locale.formattedDataSize(static_cast<qint64>(progress.bytes))));
}

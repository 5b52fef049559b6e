#include "StatusPanel.h"

#include "Icons.h"
#include "Program.h"
#include "ResultLook.h"
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>

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

QToolButton* makeButton(QStatusBar& bar, const char* name) {
    auto* button = new QToolButton(&bar);
    button->setObjectName(QLatin1String(name));
    button->setAutoRaise(true);
    button->setIconSize(QSize(16, 16));
    return button;
}

} // namespace

StatusPanel::StatusPanel(QStatusBar& bar, Program& program, const ResultLook& results)
    : m_bar(bar), m_program(program), m_results(results), m_result(makeButton(bar, "btnResult")),
      m_running(addLabel(bar, "lblRunning")), m_progress(new QProgressBar(&bar)), m_stop(makeButton(bar, "btnStopRun")),
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
    m_stop->setIcon(Icons::Icon(Icons::Picture::Stop));
    m_stop->setToolTip(program.Texts()[Text::StopRun]);
    m_stop->setAccessibleName(program.Texts()[Text::StopRun]);
    connect(m_stop, &QToolButton::clicked, this, [this] {
        m_program.State().StopRun();
        m_stop->setEnabled(false);
    });
    bar.addPermanentWidget(m_stop);
    m_count = addLabel(bar, "lblCount");
    // As narrow as the window wants it: the text is cut, the tooltip has the whole.
    m_result->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_result->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_result->hide();
    bar.addWidget(m_result, 1);
    connect(m_result, &QToolButton::clicked, this, &StatusPanel::ResultOpened);
    connect(&program.Results(), &RunResults::Changed, this, &StatusPanel::showResult);
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
    m_stop->setVisible(isRunning);
    m_stop->setEnabled(!progress.mustStop);
    m_running->setVisible(isRunning);
    if (!isRunning)
        return;
    const QLocale locale;
    m_running->setText(
        m_program.Texts()[Text::FilesAndSize].arg(progress.activity, locale.toString(progress.done.Files()),
                                                  locale.formattedDataSize(static_cast<qint64>(progress.done.bytes))));
}

void StatusPanel::showResult() {
    const std::optional<RunIdentity>& last = m_program.Results().Last();
    if (!last || m_program.Results().IsRunning(last->name))
        return; // beside it stands what runs
    m_result->show();
    const QString text = last->name + u": " + m_results.Sentence(last->name);
    m_result->setIcon(m_results.Icon(last->name));
    m_result->setText(text);
    m_result->setAccessibleName(text);
    m_result->setToolTip(Qt::convertFromPlainText(text + u'\n' + m_program.Texts()[Text::ShowInLog]));
}

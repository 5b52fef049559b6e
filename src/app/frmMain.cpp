#include "frmMain.h"

#include "ActivityListView.h"
#include "CommandGuard.h"
#include "Icons.h"
#include "frmDisclaimer.h"
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QScopedValueRollback>
#include <QStatusBar>

frmMain::frmMain(Program& program)
    : m_program(program), m_menu(*this, program.Texts()), m_view(new ActivityListView(program.List(), this)),
      m_tray(program.Texts(), Program::Title()), m_placement(*this, *program.Services().settings), m_runNow(program),
      m_waiter(program) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(Program::Title());
    m_view->setFrameShape(QFrame::NoFrame);
    setCentralWidget(m_view);
    buildStatusBar();
    connectCommands();
    connectProgram();
}

frmMain::~frmMain() = default;

void frmMain::buildStatusBar() {
    statusBar()->setObjectName(QStringLiteral("stbMain"));
    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("lblCount"));
    m_count->setTextFormat(Qt::PlainText);
    m_count->setContentsMargins(6, 0, 6, 0);
    statusBar()->addPermanentWidget(m_count);
}

void frmMain::connectCommands() {
    connect(m_menu.mnuStart, &QAction::triggered, this, &frmMain::toggleMonitoring);
    connect(m_menu.mnuExit, &QAction::triggered, this, &QWidget::close);
    connect(m_menu.mnuRefreshList, &QAction::triggered, this, &frmMain::refreshList);
    connect(m_menu.mnuStartActivityNow, &QAction::triggered, this, [this] {
        m_menu.SetRunNowEnabled(false);
        m_runNow.StartActivity(m_view->CurrentName());
        m_menu.SetRunNowEnabled(true);
    });
    connect(m_menu.mnuExecuteAllMarkedActivities, &QAction::triggered, this, [this] {
        m_menu.SetRunNowEnabled(false);
        m_runNow.ExecuteMarked(m_view->SelectedNames());
        m_menu.SetRunNowEnabled(true);
    });
    connect(m_view, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { m_menu.mnuEdit->popup(m_view->viewport()->mapToGlobal(at)); });
    connect(&m_tray, &TrayIcon::RestoreWanted, this, &frmMain::restoreFromTray);
    connect(&m_tray, &TrayIcon::StartStopWanted, this, &frmMain::toggleMonitoring);
    connect(&m_tray, &TrayIcon::ExitWanted, this, &QWidget::close);
}

void frmMain::connectProgram() {
    connect(&m_program.Monitoring(), &MonitoringController::StateChanged, this, &frmMain::showMonitoring);
    connect(&m_program.List(), &ActivityList::Refilled, this, [this] {
        setWindowTitle(m_program.Caption());
        showCount();
    });
    // Comes out of the middle of the user's click, which must be over before a box opens.
    connect(
        &m_program.List(), &ActivityList::ToggleFailed, this,
        [this](const QString& text) { TellError(m_program, text); }, Qt::QueuedConnection);
    connect(&m_program.Timers().tmrStatusbar, &TimerEx::Timer, this, [this] {
        if (!m_program.List().ListBusy())
            showCount();
        // The panel with the tray went away under a hidden window: bring it back within reach.
        if (m_started && !m_waiter.Waiting() && !isVisible() && !TrayIcon::IsAvailable())
            showMinimized();
    });
    connect(&m_waiter, &RunEndWaiter::Ended, this, &frmMain::Closed);
}

StartUpResult frmMain::Start(const CommandLine& commandLine) {
    const StartUpResult result = RunStartUp(m_program, commandLine, *this);
    if (result == StartUpResult::Running) {
        m_started = true;
        statusBar()->clearMessage();
    }
    return result;
}

void frmMain::Appear() {
    m_tray.Show();
    m_placement.Restore();
    statusBar()->showMessage(m_program.Texts().Text(183));
}

void frmMain::ShowState() {
    showMonitoring(m_program.Monitoring().IsOn());
    showCount();
    hideInTray(); // the stored state may be "minimised"
}

void frmMain::Minimise() {
    showMinimized();
}

bool frmMain::AcceptsNotice() {
    frmDisclaimer notice(m_program.Texts(), isVisible() && !isMinimized() ? this : nullptr);
    connect(this, &frmMain::Closing, &notice, &QDialog::reject);
    return notice.exec() == QDialog::Accepted;
}

void frmMain::showMonitoring(bool on) {
    m_menu.ShowMonitoring(on);
    m_tray.ShowMonitoring(on);
    setWindowIcon(Icons::Icon(on ? Icons::Picture::Monitoring : Icons::Picture::Idle));
    showCount();
}

void frmMain::showCount() {
    const ActivityList& list = m_program.List();
    int active = 0;
    for (int row = 0; row < list.Rows(); ++row)
        active += list.IsChecked(row) ? 1 : 0;
    m_count->setText(m_program.Texts().Text(438).arg(list.Rows()).arg(active));
}

void frmMain::toggleMonitoring() {
    // The click has flipped the command that was used; the marks show the state of the monitoring and nothing else.
    showMonitoring(m_program.Monitoring().IsOn());
    m_program.Monitoring().ToggleMonitoring();
}

void frmMain::refreshList() {
    if (!m_program.List().ListBusy())
        Guarded(m_program, [this] { m_program.List().Refill(); });
}

void frmMain::hideInTray() {
    // Without a tray nothing would lead back to a hidden window.
    if (isMinimized() && m_program.Options().ToTray == 1 && TrayIcon::IsAvailable()) {
        hide();
        m_tray.Show();
    }
}

void frmMain::restoreFromTray() {
    m_tray.Hide();
    showNormal();
    raise();
    activateWindow();
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        QMetaObject::invokeMethod(this, &frmMain::hideInTray, Qt::QueuedConnection);
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->ignore(); // hidden at the end of the closing path, destroyed by its owner
    if (!m_started || m_askingToClose || m_waiter.Waiting())
        return;
    if (m_program.Monitoring().IsOn()) {
        const QScopedValueRollback asking(m_askingToClose, true);
        const StringTable& texts = m_program.Texts();
        const Message question{texts.Text(159), texts.Text(160), MessageIcon::Question, MessageButtons::YesNo};
        if (m_program.Prompts().Ask(question) != MessageAnswer::Yes)
            return;
    }
    beginClosing();
}

void frmMain::CloseWithoutQuestion() {
    beginClosing();
}

void frmMain::beginClosing() {
    if (m_waiter.Waiting())
        return;
    m_waiter.Begin();
    Q_EMIT Closing();
    if (m_program.Monitoring().IsOn())
        m_program.Monitoring().StopMonitoring();
    if (m_started)
        static_cast<void>(m_placement.Save()); // nobody is left to tell; the old position stays stored then
    m_tray.Hide();
    hide();
}

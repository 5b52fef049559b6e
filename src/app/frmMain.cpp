#include "frmMain.h"

#include "ActivityListView.h"
#include "CommandGuard.h"
#include "DialogHost.h"
#include "Icons.h"
#include "frmDisclaimer.h"
#include "modOpenExplorer.h"
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QScopedValueRollback>

namespace {

const QString application = QStringLiteral("Kalvenor");
const QString listSection = QStringLiteral("ActivityList");
const QString layoutKey = QStringLiteral("Columns");

QString layoutOf(Program& program) {
    return program.Services().settings->Read(application, listSection, layoutKey).value_or(QString());
}

/// The one file or folder that is dragged; "" for anything else.
QString draggedPath(const QMimeData* data) {
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

bool isActivityFile(const QString& path) {
    return QFileInfo(path).isFile() && path.endsWith(QStringLiteral(".kvd"), Qt::CaseInsensitive);
}

} // namespace

frmMain::frmMain(Program& program, const Tools& tools)
    : m_program(program), m_menu(*this, program.Texts(), [this](Command command) { run(command); }),
      m_view(new ActivityListView(program.List(), this)), m_status(*statusBar(), program),
      m_tray(program.Texts(), Program::Title(), [this](Command command) { run(command); }),
      m_placement(*this, *program.Services().settings), m_runNow(program), m_activities(program, *m_view, tools.editor),
      m_files(program, tools.picker), m_help(program, tools.dialogs),
      m_options(program, tools.dialogs, tools.picker, m_help), m_logs(program, tools.dialogs),
      m_search(program, tools.dialogs, *m_view), m_system(program, tools.dialogs), m_waiter(program) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(Program::Title());
    setAcceptDrops(true);
    m_view->setFrameShape(QFrame::NoFrame);
    setCentralWidget(m_view);
    connect(m_view, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { m_menu.PopUp(m_view->viewport()->mapToGlobal(at)); });
    connect(m_view, &ActivityListView::RowOpened, this, [this](const QString& name) { m_activities.Properties(name); });
    connect(&m_files, &ActivityFileCommands::Progress, &m_status, &StatusPanel::Say);
    connect(&m_search, &SearchCommands::SearchAgainEnabled, this,
            [this](bool enabled) { m_menu.SetSearchAgainEnabled(enabled); });
    connect(&m_system, &SystemCommands::EndWanted, this, &frmMain::CloseWithoutQuestion);
    connect(&program.Service(), &ServiceMode::StopWanted, this, &frmMain::CloseWithoutQuestion);
    tools.dialogs.SetWindow(this);
    connect(this, &frmMain::Closing, this, [&dialogs = tools.dialogs] { dialogs.StopWaiting(); });
    connectProgram();
}

frmMain::~frmMain() = default;

void frmMain::connectProgram() {
    connect(&m_program.Monitoring(), &MonitoringController::StateChanged, this, &frmMain::showMonitoring);
    connect(&m_program.List(), &ActivityList::Refilled, this, [this] {
        setWindowTitle(m_program.Caption());
        m_status.ShowCount();
    });
    // Comes out of the middle of the user's click, which must be over before a box opens.
    connect(
        &m_program.List(), &ActivityList::ToggleFailed, this,
        [this](const QString& text) { TellError(m_program, text); }, Qt::QueuedConnection);
    connect(&m_program.Timers().tmrStatusbar, &TimerEx::Timer, this, [this] {
        if (!m_program.List().ListBusy())
            m_status.ShowCount();
        showTrayState();
        // The panel with the tray went away under a hidden window: bring it back within reach.
        if (m_started && !m_waiter.Waiting() && !isVisible() && !TrayIcon::IsAvailable())
            showMinimized();
    });
    connect(&m_waiter, &RunEndWaiter::Ended, this, &frmMain::Closed);
}

void frmMain::run(Command command) {
    switch (command) {
    case Command::StartStop:
        return toggleMonitoring();
    case Command::Restore:
        return restoreFromTray();
    case Command::Exit:
        close();
        return;
    case Command::Import:
        return m_files.Import();
    case Command::Export:
        return m_files.Export();
    case Command::StartNow:
        return runNow([this] { m_runNow.StartActivity(m_view->CurrentName()); });
    case Command::ExecuteMarked:
        return runNow([this] { m_runNow.ExecuteMarked(m_view->SelectedNames()); });
    default:
        runOnActivities(command);
        runDialog(command);
        return runSystem(command);
    }
}

void frmMain::runOnActivities(Command command) {
    switch (command) {
    case Command::AddActivity:
        return m_activities.Add();
    case Command::DeleteActivity:
        return m_activities.Delete(m_view->CurrentName());
    case Command::DeleteAll:
        return m_activities.ClearAll();
    case Command::Properties:
        return m_activities.Properties(m_view->CurrentName());
    case Command::SelectAll:
        return m_view->selectAll();
    case Command::DeselectAll:
        return m_view->clearSelection();
    case Command::Refresh:
        return refreshList();
    case Command::OpenSource:
        return modOpenExplorer::OpenSource(m_program, m_view->CurrentName());
    case Command::OpenTarget:
        return modOpenExplorer::OpenTarget(m_program, m_view->CurrentName());
    default:
        return;
    }
}

void frmMain::runDialog(Command command) {
    switch (command) {
    case Command::Preferences:
        return m_options.ShowOptions();
    case Command::ShowAppLog:
        return m_logs.ShowApplicationLog();
    case Command::DeleteAppLog:
        return m_logs.DeleteApplicationLog();
    case Command::ShowLog:
        return m_logs.ShowActivityLogs(m_view->SelectedNames());
    case Command::DeleteLog:
        return m_logs.DeleteActivityLog(m_view->CurrentName());
    case Command::Search:
        return m_search.Search();
    case Command::SearchAgain:
        return m_search.SearchAgain();
    case Command::Help:
        return m_help.OpenManual();
    case Command::SystemInfo:
        return m_help.ShowSystemInformation();
    case Command::About:
        return m_help.ShowAbout();
    default:
        return;
    }
}

void frmMain::runSystem(Command command) {
    switch (command) {
    case Command::ServiceOptions:
        return m_system.ShowServiceOptions();
    case Command::SynchroniseClock:
        return m_system.SynchroniseClock();
    case Command::SynchroniseFromTray:
        return m_system.SynchroniseClockOverDialUp();
    case Command::CheckForUpdates:
        return m_system.CheckForUpdates();
    default:
        return;
    }
}

void frmMain::runNow(const std::function<void()>& work) {
    m_menu.SetRunNowEnabled(false);
    work();
    m_menu.SetRunNowEnabled(true);
}

StartUpResult frmMain::Start(const CommandLine& commandLine) {
    const StartUpResult result = RunStartUp(m_program, commandLine, *this);
    if (result == StartUpResult::Running) {
        m_started = true;
        m_status.Say(QString());
        m_system.CheckForUpdatesOfTheDay();
    }
    return result;
}

void frmMain::Appear() {
    m_tray.Show();
    m_placement.Restore();
    m_view->RestoreLayout(layoutOf(m_program));
    m_status.Say(m_program.Texts().Text(183));
}

void frmMain::ShowState() {
    showMonitoring(m_program.Monitoring().IsOn());
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
    m_status.ShowCount();
    showTrayState();
}

/// A failure is shown until somebody has had the window before them, even when later runs went well.
void frmMain::showTrayState() {
    bool& failed = m_program.State().anyFailed;
    failed = failed && !isActiveWindow();
    const bool on = m_program.Monitoring().IsOn();
    m_tray.ShowState(failed ? TrayState::Failed : on ? TrayState::Monitoring : TrayState::Idle);
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
    if (m_started) {
        // Nobody is left to tell; what was stored before stays stored then.
        static_cast<void>(m_placement.Save());
        static_cast<void>(m_program.Services().settings->Write(application, listSection, layoutKey, m_view->Layout()));
    }
    m_tray.Hide();
    hide();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    const QString path = draggedPath(event->mimeData());
    if (QFileInfo(path).isDir() || isActivityFile(path))
        event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event) {
    const QString path = draggedPath(event->mimeData());
    event->acceptProposedAction();
    // The program that is dragged from waits for its answer: what asks the user comes after it.
    const auto take = [this, path] {
        if (QFileInfo(path).isDir())
            m_activities.Add(path);
        else if (isActivityFile(path))
            m_files.ImportFile(path);
    };
    QMetaObject::invokeMethod(this, take, Qt::QueuedConnection);
}

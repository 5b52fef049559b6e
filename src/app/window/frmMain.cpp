#include "frmMain.h"

#include "ActivityColumns.h"
#include "ActivityListView.h"
#include "CommandGuard.h"
#include "DialogHost.h"
#include "EmptyListHint.h"
#include "Icons.h"
#include "NextRunLook.h"
#include "frmDisclaimer.h"
#include "modOpenExplorer.h"
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QMimeData>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <tuple>

namespace {

const QString listSection = QStringLiteral("ActivityList");
const QString layoutKey = QStringLiteral("Columns");

QString layoutOf(Program& program) {
    return program.Services().settings->Read(SettingsStore::OwnApplication, listSection, layoutKey).value_or(QString());
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
    : m_program(program), m_dialogs(tools.dialogs),
      m_menu(*this, program.Texts(), [this](Command command) { run(command); }),
      m_results(program.Results(), program.File(), program.Texts()),
      m_view(new ActivityListView(program.List(), m_results,
                                  NextRunLook([&program](int row) { return program.Next().Of(row); },
                                              *program.Services().clock, program.Texts()),
                                  program.Texts(), this)),
      m_hint(new EmptyListHint(program.Texts())), m_status(*statusBar(), program, m_results),
      m_tray(program.Texts(), Program::Title(), [this](Command command) { run(command); }),
      m_placement(*this, *program.Services().settings), m_runNow(program, tools.dialogs, tools.picker),
      m_activities(program, *m_view, tools.editor), m_files(program, tools.picker),
      m_lastFiles(m_menu.LastFiles(), m_files.Last(), program.File(), program.Texts(),
                  [this](const QString& path) { perform([&] { m_files.ImportFile(path); }); }),
      m_example(program, m_activities, *m_view, tools.picker), m_help(program, tools.dialogs),
      m_options(program, tools.dialogs, tools.picker, m_help), m_undo(program),
      m_logWindows(program.Texts(),
                   [this](const QString& folder) { runNow([this, folder] { m_undo.UndoRun(folder); }); }),
      m_logs(program, tools.dialogs, m_logWindows), m_search(program, tools.dialogs, *m_view),
      m_system(program, tools.dialogs), m_waiter(program, this), m_commands(commandTable()) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(Program::Title());
    setAcceptDrops(true);
    layOutList();
    QMenu& columns = m_menu.Columns();
    connect(&columns, &QMenu::aboutToShow, m_view, [this, &columns] { m_view->Columns().Fill(columns); });
    connect(m_view, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { m_menu.PopUp(m_view->viewport()->mapToGlobal(at)); });
    connect(m_view, &ActivityListView::RowOpened, this,
            [this](const QString& name) { perform([&] { m_activities.Properties(name); }); });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &frmMain::showRows);
    connect(&m_files, &ActivityFileCommands::Progress, &m_status, &StatusPanel::Say);
    connect(&m_status, &StatusPanel::ResultOpened, this, [this] { perform([this] { m_logs.ShowLastResult(); }); });
    connect(&m_search, &SearchCommands::SearchAgainEnabled, this,
            [this](bool enabled) { m_menu.SetSearchAgainEnabled(enabled); });
    connect(&m_system, &SystemCommands::EndWanted, this, &frmMain::CloseWithoutQuestion);
    connect(&program.Service(), &ServiceMode::StopWanted, this, &frmMain::CloseWithoutQuestion);
    tools.dialogs.SetWindow(this);
    connect(this, &frmMain::Closing, this, [this] {
        m_dialogs.StopWaiting();
        m_logWindows.CloseAll();
    });
    connectProgram();
}

frmMain::~frmMain() = default;

void frmMain::layOutList() {
    // Beside the view, not in it: to a screen reader a view holds nothing but its cells.
    auto* list = new QWidget(this);
    auto* layers = new QGridLayout(list);
    layers->setContentsMargins(0, 0, 0, 0);
    m_view->setFrameShape(QFrame::NoFrame);
    layers->addWidget(m_view, 0, 0);
    layers->addWidget(m_hint, 0, 0, Qt::AlignCenter);
    m_hint->raise();
    m_hint->hide();
    connect(m_hint, &EmptyListHint::AddWanted, this, [this] { run(Command::AddActivity); });
    setCentralWidget(list);
}

void frmMain::connectProgram() {
    connect(&m_program.Monitoring(), &MonitoringController::StateChanged, this, &frmMain::showMonitoring);
    connect(&m_program.File(), &ActivityFile::CurrentPathChanged, this, &frmMain::showCaption);
    connect(&m_program.Results(), &RunResults::Changed, m_view, &ActivityListView::ShowResult);
    connect(&m_program.List(), &ActivityList::Refilled, this, [this] {
        m_status.ShowCount();
        showRows();
    });
    // Emitted in the middle of the user's click, which must be over before a box opens.
    connect(
        &m_program.List(), &ActivityList::ToggleFailed, this,
        [this](const QString& text, StoreError::Reason reason) { TellError(m_program, StoreError(text, reason)); },
        Qt::QueuedConnection);
    connect(&m_program.Timers().tmrStatusbar, &TimerEx::Timer, this, [this] {
        if (!m_program.List().ListBusy())
            m_status.ShowCount();
        showTrayState();
        // The panel with the tray is gone and the window is hidden: bring the window back within reach.
        if (m_started && !m_waiter.Waiting() && !isVisible() && !TrayIcon::IsAvailable())
            showMinimized();
    });
    connect(&m_waiter, &RunEndWaiter::Ended, this, &frmMain::Closed);
}

std::map<Command, std::function<void()>> frmMain::commandTable() {
    return {
        {Command::StartStop, [this] { toggleMonitoring(); }},
        {Command::StartNow, [this] { runNow([this] { m_runNow.StartActivity(m_view->CurrentName()); }); }},
        {Command::Preview, [this] { runNow([this] { m_runNow.Preview(m_view->CurrentName()); }); }},
        {Command::Statistics, [this] { m_logs.ShowStatistics(m_view->CurrentName()); }},
        {Command::ExecuteMarked, [this] { runNow([this] { m_runNow.ExecuteMarked(m_view->SelectedNames()); }); }},
        {Command::Restore, [this] { restoreFromTray(); }},
        {Command::Exit, [this] { close(); }},

        {Command::AddActivity, [this] { m_activities.Add(); }},
        {Command::DeleteActivity, [this] { m_activities.Delete(m_view->CurrentName()); }},
        {Command::DeleteSelected, [this] { m_activities.DeleteSelected(m_view->SelectedNames()); }},
        {Command::DeleteAll, [this] { m_activities.ClearAll(); }},
        {Command::Properties, [this] { m_activities.Properties(m_view->CurrentName()); }},
        {Command::SelectAll, [this] { m_view->selectAll(); }},
        {Command::DeselectAll, [this] { m_view->clearSelection(); }},
        {Command::Refresh, [this] { refreshList(); }},
        {Command::OpenSource, [this] { modOpenExplorer::OpenSource(m_program, m_view->CurrentName()); }},
        {Command::OpenTarget, [this] { modOpenExplorer::OpenTarget(m_program, m_view->CurrentName()); }},
        {Command::Import, [this] { m_files.Import(); }},
        {Command::Export, [this] { m_files.Export(); }},

        {Command::Preferences, [this] { m_options.ShowOptions(); }},
        {Command::LogWindow, [this] { m_logs.ShowLogWindow(m_view->CurrentName()); }},
        {Command::ShowAppLog, [this] { m_logs.ShowApplicationLog(); }},
        {Command::DeleteAppLog, [this] { m_logs.DeleteApplicationLog(); }},
        {Command::ShowLog, [this] { m_logs.ShowActivityLogs(m_view->SelectedNames()); }},
        {Command::DeleteLog, [this] { m_logs.DeleteActivityLog(m_view->CurrentName()); }},
        {Command::Search, [this] { m_search.Search(); }},
        {Command::SearchAgain, [this] { m_search.SearchAgain(); }},
        {Command::Help, [this] { m_help.OpenManual(); }},
        {Command::CreateExample, [this] { m_example.Create(); }},
        {Command::SystemInfo, [this] { m_help.ShowSystemInformation(); }},
        {Command::About, [this] { m_help.ShowAbout(); }},

        {Command::ServiceOptions, [this] { m_system.ShowServiceOptions(); }},
        {Command::SynchroniseClock, [this] { m_system.SynchroniseClock(); }},
        {Command::SynchroniseFromTray, [this] { m_system.SynchroniseClockOverDialUp(); }},
        {Command::CheckForUpdates, [this] { m_system.CheckForUpdates(); }},
    };
}

void frmMain::run(Command command) {
    if (const auto entry = m_commands.find(command); entry != m_commands.end())
        perform(entry->second);
}

void frmMain::perform(const std::function<void()>& work) {
    Guarded(m_program, work);
}

void frmMain::runNow(const std::function<void()>& work) {
    m_menu.SetRunNowEnabled(false);
    const auto enable = qScopeGuard([this] { m_menu.SetRunNowEnabled(true); });
    work();
}

StartUpResult frmMain::Start(const CommandLine& commandLine) {
    const StartUpResult result = RunStartUp(m_program, commandLine, *this);
    if (result == StartUpResult::Running) {
        m_started = true;
        m_status.Say(QString());
        m_files.RememberStart();
        m_system.CheckForUpdatesOfTheDay();
    }
    return result;
}

void frmMain::Appear() {
    m_tray.Show();
    m_placement.Restore();
    m_view->Columns().RestoreLayout(layoutOf(m_program));
    m_status.Say(m_program.Texts()[Text::Initializing]);
}

void frmMain::ShowState() {
    showCaption();
    showMonitoring(m_program.Monitoring().IsOn());
    hideInTray(); // the stored state may be "minimised"
}

void frmMain::Minimise() {
    showMinimized();
}

bool frmMain::AcceptsNotice() {
    m_status.Say(QString()); // ready but for the answer
    frmDisclaimer notice(m_program.Texts(), isVisible() && !isMinimized() ? this : nullptr);
    connect(this, &frmMain::Closing, &notice, &QDialog::reject);
    return notice.exec() == QDialog::Accepted;
}

void frmMain::showCaption() {
    setWindowTitle(m_program.Caption());
}

void frmMain::showRows() {
    const bool hasRows = m_program.List().Rows() > 0;
    m_menu.ShowRows(hasRows, m_view->SelectedNames().size());
    m_hint->setVisible(!hasRows && m_program.File().IsLoaded());
}

void frmMain::showMonitoring(bool on) {
    m_menu.ShowMonitoring(on);
    m_tray.ShowMonitoring(on);
    setWindowIcon(Icons::Icon(on ? Icons::Picture::Monitoring : Icons::Picture::Idle));
    m_status.ShowCount();
    showTrayState();
}

/// A failure stays visible until the user has seen the window, even when later runs succeed.
void frmMain::showTrayState() {
    RunResults& results = m_program.Results();
    if (isActiveWindow())
        results.Seen();
    m_tray.ShowState(m_program.Monitoring().IsOn(), results.Unseen().size());
}

void frmMain::toggleMonitoring() {
    // The click has toggled the action itself; its mark has to show the state of monitoring.
    showMonitoring(m_program.Monitoring().IsOn());
    m_program.Monitoring().ToggleMonitoring();
}

void frmMain::refreshList() {
    if (m_program.List().ListBusy())
        return;
    m_program.Results().Refresh();
    m_program.List().Refill();
}

void frmMain::hideInTray() {
    // Without a tray the user could not get a hidden window back.
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
    const QScopedValueRollback asking(m_askingToClose, true);
    if (mayClose())
        beginClosing();
}

bool frmMain::mayClose() {
    if (!m_dialogs.MayAllEnd())
        return false;
    const bool isMonitoring = m_program.Monitoring().IsOn();
    if (!isMonitoring && m_program.State().Depth() == 0)
        return true;
    const StringTable& texts = m_program.Texts();
    return m_program.Prompts().Ask({texts[isMonitoring ? Text::ExitWhileMonitoring : Text::ExitDuringRun],
                                    texts[Text::ExitTitle], MessageIcon::Question, MessageButtons::YesNo}) ==
           MessageAnswer::Yes;
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
        // The user has left, so a failure is not shown. What was stored before stays.
        std::ignore = m_placement.Save();
        std::ignore = m_program.Services().settings->Write(SettingsStore::OwnApplication, listSection, layoutKey,
                                                           m_view->Columns().Layout());
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
    // The drag source waits for our answer, so nothing may ask the user before it is given.
    const auto take = [this, path] {
        if (QFileInfo(path).isDir())
            m_activities.Add(path);
        else if (isActivityFile(path))
            m_files.ImportFile(path);
    };
    QMetaObject::invokeMethod(
        this, [this, take] { perform(take); }, Qt::QueuedConnection);
}

#include "MainMenu.h"

#include "Icons.h"
#include "StringTable.h"
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <array>

using Icons::Picture;

namespace {

constexpr MenuEntry separator{};

constexpr std::array file{
    MenuEntry{"mnuAddDirMain", Text::AddActivity, Command::AddActivity, Picture::Add, "Ctrl+N"},
    MenuEntry{"mnuDelDirMain", Text::DeleteActivity, Command::DeleteActivity, Picture::Delete},
    separator,
    MenuEntry{"mnuImportActivities", Text::Import, Command::Import, Picture::Import, "Ctrl+O"},
    MenuEntry{"mnuExportActivities", Text::Export, Command::Export, Picture::Export, "Ctrl+Shift+S"},
    separator,
    MenuEntry{"mnuStart", Text::StartMonitoring, Command::StartStop, Picture::Start, "Ctrl+M"},
    separator,
    MenuEntry{"mnuDeleteAllActivities", Text::DeleteAll, Command::DeleteAll},
    separator,
    MenuEntry{"mnuPreferences", Text::Settings, Command::Preferences, Picture::Settings, "Ctrl+,"},
    MenuEntry{"mnuServiceOptions", Text::ServiceSettings, Command::ServiceOptions},
    MenuEntry{"mnuTimeSync", Text::SynchronizeClock, Command::SynchroniseClock},
    separator,
    MenuEntry{"mnuLogWindow", Text::LogWindow, Command::LogWindow},
    MenuEntry{"mnuViewLogfile", Text::ShowApplicationLog, Command::ShowAppLog, Picture::Log},
    MenuEntry{"mnuDeleteLogfile", Text::DeleteApplicationLog, Command::DeleteAppLog},
    separator,
    MenuEntry{"mnuExit", Text::Exit, Command::Exit, Picture::Exit, "Ctrl+Q"}};

constexpr std::array edit{
    MenuEntry{"mnuAddDir", Text::AddActivity, Command::AddActivity, Picture::Add},
    MenuEntry{"mnuDelDir", Text::DeleteActivity, Command::DeleteActivity, Picture::Delete, "Del"},
    MenuEntry{"mnuDeleteSelected", Text::DeleteSelected, Command::DeleteSelected},
    separator,
    MenuEntry{"mnuSelectAll", Text::SelectAll, Command::SelectAll, Picture::None, "Ctrl+A"},
    MenuEntry{"mnuDeselectAll", Text::DeselectAll, Command::DeselectAll, Picture::None, "Ctrl+Shift+A"},
    separator,
    MenuEntry{"mnuActivityLogWindow", Text::LogWindow, Command::LogWindow, Picture::None, "Ctrl+L"},
    MenuEntry{"mnuShowLogfile", Text::ShowLog, Command::ShowLog, Picture::Log, "Ctrl+Shift+L"},
    MenuEntry{"mnuDeleteActivityLog", Text::DeleteLog, Command::DeleteLog},
    separator,
    MenuEntry{"mnuClearAll", Text::DeleteAll, Command::DeleteAll},
    separator,
    MenuEntry{"mnuPreview", Text::Preview, Command::Preview, Picture::Preview, "Ctrl+P"},
    MenuEntry{"mnuStatistics", Text::Statistics, Command::Statistics},
    MenuEntry{"mnuStartActivityNow", Text::StartNow, Command::StartNow, Picture::RunNow, "Ctrl+R"},
    MenuEntry{"mnuExecuteAllMarkedActivities", Text::ExecuteMarked, Command::ExecuteMarked, Picture::RunMarked,
              "Ctrl+Shift+R"},
    separator,
    MenuEntry{"mnuSearch", Text::Search, Command::Search, Picture::Search, "Ctrl+F"},
    MenuEntry{"mnuSearchAgain", Text::SearchAgain, Command::SearchAgain, Picture::None, "F3"},
    separator,
    MenuEntry{"mnuRefreshList", Text::Refresh, Command::Refresh, Picture::Refresh, "F5"},
    separator,
    MenuEntry{"mnuOpenSourceDir", Text::OpenSource, Command::OpenSource, Picture::Folder},
    MenuEntry{"mnuOpenTargetDir", Text::OpenDestination, Command::OpenTarget, Picture::Folder},
    separator,
    MenuEntry{"mnuProperties", Text::Properties, Command::Properties, Picture::Properties, "Alt+Return"}};

constexpr std::array help{MenuEntry{"mnuHelpDoc", Text::Help, Command::Help, Picture::Help, "F1"},
                          MenuEntry{"mnuExample", Text::CreateExample, Command::CreateExample},
                          separator,
                          MenuEntry{"mnuCheckForUpdates", Text::CheckForUpdate, Command::CheckForUpdates},
                          separator,
                          MenuEntry{"mnuSysInfo", Text::None, Command::SystemInfo, Picture::SystemInfo},
                          separator,
                          MenuEntry{"mnuAbout", Text::About, Command::About, Picture::Idle}};

struct Button {
    const char* key;
    Text text; ///< tooltip
    Command command;
    Picture picture;
};

constexpr std::array buttons{Button{"ViewLog", Text::ShowLog, Command::ShowLog, Picture::Log},
                             Button{"AddDir", Text::AddActivity, Command::AddActivity, Picture::Add},
                             Button{"DelDir", Text::DeleteActivity, Command::DeleteActivity, Picture::Delete},
                             Button{"Options", Text::Settings, Command::Properties, Picture::Properties},
                             Button{"Preview", Text::Preview, Command::Preview, Picture::Preview},
                             Button{"RunNow", Text::StartNow, Command::StartNow, Picture::RunNow},
                             Button{"Help", Text::Help, Command::Help, Picture::Help}};

} // namespace

MainMenu::MainMenu(QMainWindow& window, const StringTable& texts, std::function<void(Command)> run)
    : m_window(window), m_texts(texts), m_run(std::move(run)) {
    const auto addMenu = [&](const char* name, Text text, std::span<const MenuEntry> entries) {
        QMenu* menu = window.menuBar()->addMenu(texts[text]);
        menu->setObjectName(QLatin1String(name));
        FillMenu(*menu, entries, texts, m_run);
        return menu;
    };
    QMenu* fileMenu = addMenu("mnuFile", Text::FileMenu, file);
    m_lastFiles = addSubmenu("mnuLastFiles", Text::LastFiles, *fileMenu, "mnuExportActivities");
    m_edit = addMenu("mnuEdit", Text::ActivityMenu, edit);
    m_columns = addSubmenu("mnuColumns", Text::Columns, *m_edit, "mnuRefreshList");
    addMenu("mnuHelp", Text::Help, help)->setTitle(u'&' + texts[Text::Help]);
    find("mnuSysInfo")->setText(QStringLiteral("Systeminfo"));
    find("mnuStart")->setCheckable(true);
    find("mnuExit")->setMenuRole(QAction::QuitRole);
    find("mnuAbout")->setMenuRole(QAction::AboutRole);
    buildToolbar(window);
    for (QAction* action : window.findChildren<QAction*>())
        if (action->data().isValid())
            m_actions.push_back(action);
    enable();
    ShowMonitoring(false);
}

QMenu* MainMenu::addSubmenu(const char* name, Text text, QMenu& menu, const char* after) {
    auto* submenu = new QMenu(m_texts[text], &menu);
    submenu->setObjectName(QLatin1String(name));
    const QList<QAction*> entries = menu.actions();
    menu.insertMenu(entries[entries.indexOf(find(after)) + 1], submenu);
    return submenu;
}

QAction* MainMenu::find(const char* name) const {
    return m_window.findChild<QAction*>(QLatin1String(name));
}

void MainMenu::buildToolbar(QMainWindow& window) {
    auto* toolbar = new QToolBar(&window);
    toolbar->setObjectName(QStringLiteral("tlbMain"));
    toolbar->setMovable(false);
    toolbar->setIconSize(QSize(24, 24));
    // No command could bring back a toolbar that was switched off by accident.
    toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    toolbar->addAction(find("mnuStart"));
    auto* start = qobject_cast<QToolButton*>(toolbar->widgetForAction(find("mnuStart")));
    start->setObjectName(QStringLiteral("StartStop"));
    start->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolbar->addSeparator();
    for (const Button& button : buttons) {
        const QString caption = m_texts[button.text];
        QAction* action = toolbar->addAction(Icons::Icon(button.picture), caption);
        action->setData(static_cast<int>(button.command));
        QObject::connect(action, &QAction::triggered, toolbar, [this, command = button.command] { m_run(command); });
        QWidget* widget = toolbar->widgetForAction(action);
        widget->setObjectName(QLatin1String(button.key));
        widget->setAccessibleName(caption);
    }
    window.addToolBar(toolbar);
}

void MainMenu::ShowMonitoring(bool on) {
    QAction* start = find("mnuStart");
    const QString caption = m_texts[on ? Text::StopMonitoring : Text::StartMonitoring];
    start->setText(caption);
    start->setToolTip(caption);
    start->setIcon(Icons::Icon(on ? Picture::Stop : Picture::Start));
    start->setChecked(on);
}

bool MainMenu::canWork(Command command) const {
    switch (command) {
    case Command::StartNow:
    case Command::ExecuteMarked:
    case Command::Preview:
        return m_selected > 0 && m_mayRun;
    case Command::DeleteSelected:
        return m_selected > 1;
    case Command::DeleteActivity:
    case Command::Properties:
    case Command::Statistics:
    case Command::ShowLog:
    case Command::DeleteLog:
    case Command::OpenSource:
    case Command::OpenTarget:
    case Command::DeselectAll:
        return m_selected > 0;
    case Command::SelectAll:
    case Command::Search:
        return m_hasRows;
    case Command::SearchAgain:
        return m_hasRows && m_maySearchAgain;
    default:
        return true;
    }
}

void MainMenu::enable() {
    for (QAction* action : m_actions)
        action->setEnabled(canWork(static_cast<Command>(action->data().toInt())));
}

void MainMenu::ShowRows(bool isAnyThere, qsizetype selected) {
    m_hasRows = isAnyThere;
    m_selected = selected;
    enable();
}

void MainMenu::SetRunNowEnabled(bool enabled) {
    m_mayRun = enabled;
    enable();
}

void MainMenu::SetSearchAgainEnabled(bool enabled) {
    m_maySearchAgain = enabled;
    enable();
}

void MainMenu::PopUp(const QPoint& position) {
    m_edit->popup(position);
}

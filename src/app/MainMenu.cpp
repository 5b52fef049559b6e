#include "MainMenu.h"

#include "Icons.h"
#include "MenuEntry.h"
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

constexpr std::array file{MenuEntry{"mnuAddDirMain", 151, Command::AddActivity, Picture::Add, "Ctrl+N"},
                          MenuEntry{"mnuDelDirMain", 152, Command::DeleteActivity, Picture::Delete},
                          separator,
                          MenuEntry{"mnuImportActivities", 140, Command::Import, Picture::Import, "Ctrl+O"},
                          MenuEntry{"mnuExportActivities", 141, Command::Export, Picture::Export, "Ctrl+Shift+S"},
                          separator,
                          MenuEntry{"mnuStart", 142, Command::StartStop, Picture::Start, "Ctrl+M"},
                          separator,
                          MenuEntry{"mnuDeleteAllActivities", 143, Command::DeleteAll},
                          separator,
                          MenuEntry{"mnuPreferences", 144, Command::Preferences, Picture::Settings, "Ctrl+,"},
                          MenuEntry{"mnuServiceOptions", 428, Command::ServiceOptions},
                          MenuEntry{"mnuTimeSync", 145, Command::SynchroniseClock},
                          separator,
                          MenuEntry{"mnuViewLogfile", 146, Command::ShowAppLog, Picture::Log},
                          MenuEntry{"mnuDeleteLogfile", 147, Command::DeleteAppLog},
                          separator,
                          MenuEntry{"mnuExit", 148, Command::Exit, Picture::Exit, "Ctrl+Q"}};

constexpr std::array edit{
    MenuEntry{"mnuAddDir", 151, Command::AddActivity, Picture::Add},
    MenuEntry{"mnuDelDir", 152, Command::DeleteActivity, Picture::Delete, "Del"},
    separator,
    MenuEntry{"mnuSelectAll", 153, Command::SelectAll, Picture::None, "Ctrl+A"},
    MenuEntry{"mnuDeselectAll", 154, Command::DeselectAll, Picture::None, "Ctrl+Shift+A"},
    separator,
    MenuEntry{"mnuShowLogfile", 155, Command::ShowLog, Picture::Log, "Ctrl+L"},
    MenuEntry{"mnuDeleteActivityLog", 156, Command::DeleteLog},
    separator,
    MenuEntry{"mnuClearAll", 143, Command::DeleteAll},
    separator,
    MenuEntry{"mnuStartActivityNow", 157, Command::StartNow, Picture::RunNow, "Ctrl+R"},
    MenuEntry{"mnuExecuteAllMarkedActivities", 383, Command::ExecuteMarked, Picture::RunMarked, "Ctrl+Shift+R"},
    separator,
    MenuEntry{"mnuSearch", 375, Command::Search, Picture::Search, "Ctrl+F"},
    MenuEntry{"mnuSearchAgain", 378, Command::SearchAgain, Picture::None, "F3"},
    separator,
    MenuEntry{"mnuRefreshList", 381, Command::Refresh, Picture::Refresh, "F5"},
    separator,
    MenuEntry{"mnuOpenSourceDir", 398, Command::OpenSource, Picture::Folder},
    MenuEntry{"mnuOpenTargetDir", 399, Command::OpenTarget, Picture::Folder},
    separator,
    MenuEntry{"mnuProperties", 158, Command::Properties, Picture::Properties, "Alt+Return"}};

constexpr std::array help{MenuEntry{"mnuHelpDoc", 127, Command::Help, Picture::Help, "F1"},
                          separator,
                          MenuEntry{"mnuCheckForUpdates", 406, Command::CheckForUpdates},
                          separator,
                          MenuEntry{"mnuSysInfo", 0, Command::SystemInfo, Picture::SystemInfo},
                          separator,
                          MenuEntry{"mnuAbout", 150, Command::About, Picture::Idle}};

struct Button {
    const char* key;
    int textId; ///< tooltip
    Command command;
    Picture picture;
};

constexpr std::array buttons{Button{"ViewLog", 155, Command::ShowLog, Picture::Log},
                             Button{"AddDir", 151, Command::AddActivity, Picture::Add},
                             Button{"DelDir", 152, Command::DeleteActivity, Picture::Delete},
                             Button{"Options", 144, Command::Properties, Picture::Properties},
                             Button{"Help", 127, Command::Help, Picture::Help}};

} // namespace

MainMenu::MainMenu(QMainWindow& window, const StringTable& texts, std::function<void(Command)> run)
    : m_window(window), m_texts(texts), m_run(std::move(run)) {
    const auto addMenu = [&](const char* name, int textId, std::span<const MenuEntry> entries) {
        QMenu* menu = window.menuBar()->addMenu(texts.Text(textId));
        menu->setObjectName(QLatin1String(name));
        FillMenu(*menu, entries, texts, m_run);
        return menu;
    };
    addMenu("mnuFile", 139, file);
    m_edit = addMenu("mnuEdit", 445, edit);
    addMenu("mnuHelp", 127, help)->setTitle(u'&' + texts.Text(127));
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

QAction* MainMenu::find(const char* name) const {
    return m_window.findChild<QAction*>(QLatin1String(name));
}

void MainMenu::buildToolbar(QMainWindow& window) {
    auto* toolbar = new QToolBar(&window);
    toolbar->setObjectName(QStringLiteral("tlbMain"));
    toolbar->setMovable(false);
    toolbar->setIconSize(QSize(24, 24));
    // A toolbar that was switched off by accident could not be brought back.
    toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    toolbar->addAction(find("mnuStart"));
    auto* start = qobject_cast<QToolButton*>(toolbar->widgetForAction(find("mnuStart")));
    start->setObjectName(QStringLiteral("StartStop"));
    start->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    toolbar->addSeparator();
    for (const Button& button : buttons) {
        const QString caption = m_texts.Text(button.textId);
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
    const QString caption = m_texts.Text(on ? 219 : 142);
    start->setText(caption);
    start->setToolTip(caption);
    start->setIcon(Icons::Icon(on ? Picture::Stop : Picture::Start));
    start->setChecked(on);
}

bool MainMenu::canWork(Command command) const {
    switch (command) {
    case Command::StartNow:
    case Command::ExecuteMarked:
        return m_hasSelection && m_mayRun;
    case Command::DeleteActivity:
    case Command::Properties:
    case Command::ShowLog:
    case Command::DeleteLog:
    case Command::OpenSource:
    case Command::OpenTarget:
    case Command::DeselectAll:
        return m_hasSelection;
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

void MainMenu::ShowRows(bool isAnyThere, bool isAnySelected) {
    m_hasRows = isAnyThere;
    m_hasSelection = isAnySelected;
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

#include "MainMenu.h"

#include "Icons.h"
#include "StringTable.h"
#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

using Icons::Picture;

namespace {

QAction* addCommand(QMenu& menu, const char* objectName, const QString& caption, Picture picture) {
    QAction* action = menu.addAction(Icons::Icon(picture), caption);
    action->setObjectName(QLatin1String(objectName));
    return action;
}

QMenu* addMenu(QMainWindow& window, const char* objectName, const QString& caption) {
    QMenu* menu = window.menuBar()->addMenu(caption);
    menu->setObjectName(QLatin1String(objectName));
    return menu;
}

} // namespace

MainMenu::MainMenu(QMainWindow& window, const StringTable& texts) : m_texts(texts) {
    QMenu* mnuFile = addMenu(window, "mnuFile", texts.Text(139));
    mnuStart = addCommand(*mnuFile, "mnuStart", QString(), Picture::Start);
    mnuStart->setCheckable(true);
    mnuFile->addSeparator();
    mnuExit = addCommand(*mnuFile, "mnuExit", texts.Text(148), Picture::Exit);
    mnuExit->setShortcut(QKeySequence::Quit);
    mnuExit->setMenuRole(QAction::QuitRole);

    mnuEdit = addMenu(window, "mnuEdit", texts.Text(445));
    mnuStartActivityNow = addCommand(*mnuEdit, "mnuStartActivityNow", texts.Text(157), Picture::RunNow);
    mnuExecuteAllMarkedActivities =
        addCommand(*mnuEdit, "mnuExecuteAllMarkedActivities", texts.Text(383), Picture::RunMarked);
    mnuEdit->addSeparator();
    mnuRefreshList = addCommand(*mnuEdit, "mnuRefreshList", texts.Text(381), Picture::Refresh);
    mnuRefreshList->setShortcut(QKeySequence::Refresh);

    buildToolbar(window);
    ShowMonitoring(false);
}

void MainMenu::buildToolbar(QMainWindow& window) {
    auto* toolbar = new QToolBar(&window);
    toolbar->setObjectName(QStringLiteral("tlbMain"));
    toolbar->setMovable(false);
    toolbar->setIconSize(QSize(24, 24));
    toolbar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    // A toolbar that was switched off by accident could not be brought back.
    toolbar->setContextMenuPolicy(Qt::PreventContextMenu);
    toolbar->addAction(mnuStart);
    toolbar->widgetForAction(mnuStart)->setObjectName(QStringLiteral("StartStop"));
    window.addToolBar(toolbar);
}

void MainMenu::ShowMonitoring(bool on) {
    const QString caption = m_texts.Text(on ? 219 : 142);
    mnuStart->setText(caption);
    mnuStart->setToolTip(caption);
    mnuStart->setIcon(Icons::Icon(on ? Picture::Stop : Picture::Start));
    mnuStart->setChecked(on);
}

void MainMenu::SetRunNowEnabled(bool enabled) {
    mnuStartActivityNow->setEnabled(enabled);
    mnuExecuteAllMarkedActivities->setEnabled(enabled);
}

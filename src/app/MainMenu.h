// The main window's commands: menu bar, context menu of the list and toolbar, with captions from the string table. The
// window owns the widgets; this only knows them by name.
#pragma once

class QAction;
class QMainWindow;
class QMenu;
class QString;
class StringTable;

class MainMenu final {
  public:
    MainMenu(QMainWindow& window, const StringTable& texts);

    /// mnuStart and the toolbar's start button follow the monitoring.
    void ShowMonitoring(bool on);
    void SetRunNowEnabled(bool enabled);

    QAction* mnuStart;
    QAction* mnuExit;
    QAction* mnuStartActivityNow;
    QAction* mnuExecuteAllMarkedActivities;
    QAction* mnuRefreshList;
    QMenu* mnuEdit; ///< in the menu bar and at the pointer over the list

  private:
    void buildToolbar(QMainWindow& window);

    const StringTable& m_texts;
};

// The main window's menu bar, the context menu of its list and its toolbar, built from tables. The window owns the
// widgets; this finds them by name.
#pragma once

#include "MenuEntry.h"
#include <functional>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;
class QPoint;
class StringTable;

class MainMenu final {
  public:
    /// Every entry and button passes its command to `run`, which must outlive the window's widgets.
    MainMenu(QMainWindow& window, const StringTable& texts, std::function<void(Command)> run);

    /// mnuStart and the toolbar's start button follow the monitoring.
    void ShowMonitoring(bool on);
    /// Disables the commands that have nothing to work on.
    void ShowRows(bool isAnyThere, qsizetype selected);
    void SetRunNowEnabled(bool enabled);
    void SetSearchAgainEnabled(bool enabled);
    void PopUp(const QPoint& position);
    /// Empty: their owners fill them.
    [[nodiscard]] QMenu& LastFiles() const { return *m_lastFiles; }
    [[nodiscard]] QMenu& Columns() const { return *m_columns; }

  private:
    void buildToolbar(QMainWindow& window);
    [[nodiscard]] QMenu* addSubmenu(const char* name, Text text, QMenu& menu, const char* after);
    [[nodiscard]] bool canWork(Command command) const;
    void enable();
    [[nodiscard]] QAction* find(const char* name) const;

    QMainWindow& m_window;
    const StringTable& m_texts;
    std::function<void(Command)> m_run;
    std::vector<QAction*> m_actions; ///< each with the number of its command as its data
    bool m_hasRows = false;
    qsizetype m_selected = 0;
    bool m_mayRun = true;
    bool m_maySearchAgain = false;
    QMenu* m_lastFiles;
    QMenu* m_columns;
    QMenu* m_edit; ///< in the menu bar and at the pointer over the list
};

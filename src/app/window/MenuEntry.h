// What the user can tell the program to do, and one line of a menu that says it. Menus are made from tables of these
// lines; a line without a name is a separator.
#pragma once

#include "Icons.h"
#include "Text.h"
#include <QAction>
#include <functional>
#include <span>

class QMenu;
class StringTable;

enum class Command {
    AddActivity,
    DeleteActivity,
    DeleteSelected,
    DeleteAll,
    Properties,
    SelectAll,
    DeselectAll,
    Refresh,
    Import,
    Export,
    StartStop,
    StartNow,
    Preview,
    Statistics,
    ExecuteMarked,
    Preferences,
    ServiceOptions,
    SynchroniseClock,
    SynchroniseFromTray,
    CheckForUpdates,
    LogWindow,
    ShowAppLog,
    DeleteAppLog,
    ShowLog,
    DeleteLog,
    Search,
    SearchAgain,
    OpenSource,
    OpenTarget,
    Help,
    CreateExample,
    SystemInfo,
    About,
    Restore,
    Exit
};

struct MenuEntry {
    const char* name = nullptr;
    Text text = Text::None; ///< None: the caption is the product's name
    Command command = Command::Exit;
    Icons::Picture picture = Icons::Picture::None;
    const char* shortcut = "";
};

/// Adds the lines to `menu`. Each action holds the number of its command as its data and passes the command to `run`,
/// which must outlive the menu.
void FillMenu(QMenu& menu, std::span<const MenuEntry> entries, const StringTable& texts,
              const std::function<void(Command)>& run);

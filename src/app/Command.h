// What the user can tell the program to do, from whatever menu or button. Plain values.
#pragma once

enum class Command {
    AddActivity,
    DeleteActivity,
    DeleteAll,
    Properties,
    SelectAll,
    DeselectAll,
    Refresh,
    Import,
    Export,
    StartStop,
    StartNow,
    ExecuteMarked,
    Preferences,
    ShowAppLog,
    DeleteAppLog,
    ShowLog,
    DeleteLog,
    Search,
    SearchAgain,
    OpenSource,
    OpenTarget,
    Help,
    SystemInfo,
    About,
    Restore,
    Exit
};

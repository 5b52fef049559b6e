// What forms need of the rest of the program. References only: whoever opens a form keeps them alive meanwhile.
#pragma once

#include "TestMail.h"
#include <QLocale>

class Clock;
class DesktopMailClient;
class FilePicker;
class OwnFiles;
class Prompter;
class SettingsStore;
class StringTable;
class clsGetSystemDirectoryPaths;

struct FormServices {
    const StringTable& texts;
    Prompter& prompter;
    FilePicker& picker;
    OwnFiles& files;
    SettingsStore& settings;
};

/// What the activity editor needs besides.
struct EditorServices : FormServices {
    const Clock& clock;
    DesktopMailClient& desktopMail;
    const clsGetSystemDirectoryPaths& system;
    QLocale locale;                ///< of dates: the one the schedulers read them with
    bool countsByTheClock = false; ///< the general option
    SendTestMail sendTestMail = {};
};

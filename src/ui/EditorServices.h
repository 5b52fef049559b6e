// What the activity editor needs of the rest of the program. References only.
#pragma once

#include <QLocale>

class Clock;
class DesktopMailClient;
class FilePicker;
class OwnFiles;
class Prompter;
class SettingsStore;
class StringTable;
class clsGetSystemDirectoryPaths;

struct EditorServices {
    const StringTable& texts;
    Prompter& prompter;
    FilePicker& picker;
    OwnFiles& files;
    SettingsStore& settings;
    const Clock& clock;
    DesktopMailClient& desktopMail;
    const clsGetSystemDirectoryPaths& system;
    QLocale locale; ///< of dates: the one the schedulers read them with
};

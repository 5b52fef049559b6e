// The session this process was started in, as its environment describes it. An entry that is missing counts as no.
#pragma once

#include <QStringList>

struct DisplayFacts {
    QString display;        ///< address of the X server, or the visible window station of Windows; empty: none
    QString waylandDisplay; ///< socket of the Wayland compositor; empty: none
    QString platformPlugin; ///< the Qt plug-in asked for, "name" or "name:options", several joined with ";"
};

[[nodiscard]] DisplayFacts ReadDisplayFacts();

/// True when the system's journal reads our standard error.
[[nodiscard]] bool IsJournalOnStandardError();

/// The words after the program's name that main was given.
[[nodiscard]] QStringList CommandLineWords(int argc, char** argv);

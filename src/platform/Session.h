// The session this process was started in, as its environment describes it. An entry that is missing counts as no.
#pragma once

#include <QStringList>

struct DisplayFacts {
    QString display;        ///< address of the X server, or the visible window station of Windows; empty: none
    QString waylandDisplay; ///< socket of the Wayland compositor; empty: none
    QString platformPlugin; ///< the Qt plug-in asked for, "name" or "name:options", several joined with ";"
};

[[nodiscard]] DisplayFacts ReadDisplayFacts();

/// Whether the desktop's request to commit data comes at the end of a session only. X11 has it for checkpoints too, and
/// asks for the end in another way.
[[nodiscard]] bool EndsSessionWithCommit();

/// One line for whoever looks after the system: on standard error, in the form of sd-daemon(3) where the journal reads
/// it; in the event log of Windows where there is no standard error. `priority` as in syslog(3), 3 to 7.
void WriteSystemLog(int priority, const QString& line);

/// From now on until this process ends, its console shows what it writes as UTF-8.
void UseUtf8Console();

/// The words after the program's name that main was given.
[[nodiscard]] QStringList CommandLineWords(int argc, char** argv);

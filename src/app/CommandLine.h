// How the program is to start: what the command line asks for, and whether this display can show a window. Pure
// functions; no path is opened.
#pragma once

#include "Session.h"
#include <QString>
#include <QStringList>

struct CommandLine {
    enum class Kind {
        Nothing,      ///< no argument: the default file
        StartService, ///< started by the service manager
        ServiceWord,  ///< a word that manages the service
        File          ///< the path of an activity file
    };
    Kind kind = Kind::Nothing;
    QString text;     ///< the argument as written, without surrounding quotes
    QString file;     ///< kind File: the absolute path it names; "" when it names none
    QString platform; ///< value of Qt's own option "-platform"; "" when it was not given
};

/// Takes the words after the program's name. Drops Qt's own options and joins the rest with one blank, because a
/// desktop may pass an unquoted path with blanks in pieces.
[[nodiscard]] CommandLine ParseCommandLine(const QStringList& words);

/// False without a display server, and for platform plug-ins that draw into memory only. A plug-in that brings its own
/// screen (a frame buffer, a remote desktop) needs no server.
[[nodiscard]] bool ShowsWindows(const DisplayFacts& facts);

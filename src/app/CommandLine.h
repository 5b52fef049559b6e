// What the command line asks for. Pure: nothing is opened, nothing fails.
#pragma once

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
    QString text;     ///< the argument as it was written, without surrounding quotes
    QString file;     ///< kind File: the absolute path it names; "" when it names none
    QString platform; ///< value of Qt's own option "-platform"; "" when it was not given
};

/// Takes the words after the program's name. Qt's own options are left out and the other words are joined with one
/// blank, since a desktop may hand over an unquoted path with blanks in pieces.
[[nodiscard]] CommandLine ParseCommandLine(const QStringList& words);

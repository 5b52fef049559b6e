// A part of a log, as it was read: whole lines and where they stand in the file.
#pragma once

#include "LogKinds.h"
#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <system_error>
#include <vector>

struct LogLine {
    qint64 begin = 0; ///< in the file
    qint64 end = 0;   ///< behind the line end
    LogKind kind = LogKind::Other;
    bool isOpen = false; ///< the log's last line, not ended yet
    QString text;        ///< without line end or control characters, invalid bytes as U+FFFD
};

struct LogPart {
    static constexpr qint64 MostBytes = 2 << 20; ///< of a text on the screen

    std::vector<LogLine> lines; ///< those wanted; an overlong line is several
    qint64 begin = 0;           ///< of what was looked through, in the file
    qint64 end = 0;
    qint64 size = 0; ///< of the file
    QByteArray head; ///< its first bytes: a log that was made anew begins with another time
    std::error_code error;
};

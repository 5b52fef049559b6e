// A part of a log, however long the log is: read from the file when it is asked for, a few MiB at most. Whatever the
// path names, reading neither waits nor reads without a bound; what cannot be read is an error code.
#pragma once

#include <QString>
#include <QtGlobal>
#include <filesystem>
#include <system_error>

struct LogPart {
    static constexpr qint64 MostBytes = 2 << 20;

    QString text;     ///< in the encoding of logs, invalid bytes as U+FFFD, "\n" between lines; long lines are broken
    qint64 begin = 0; ///< in the file; whole lines where the log has any
    qint64 end = 0;
    qint64 size = 0;    ///< of the file
    int linesAbove = 0; ///< those before the mark that was given
    std::error_code error;

    /// The end of the log.
    [[nodiscard]] static LogPart Last(const std::filesystem::path& file);
    /// From this byte on. `mark`: a byte in it, at which another part began or ended.
    [[nodiscard]] static LogPart From(const std::filesystem::path& file, qint64 begin, qint64 mark);
};

// Looks for a text in all lines of a log, from a place in it to the end and on from the other end back to that place.
// Reads part after part and ends soon after it is cancelled. For any thread.
#pragma once

#include "LogReader.h"
#include <QStringMatcher>
#include <atomic>
#include <optional>

/// A character of a line.
struct LogPlace {
    qint64 line = 0; ///< where it begins in the file
    qsizetype column = 0;

    friend bool operator==(const LogPlace&, const LogPlace&) = default;
};

struct LogSearch {
    QString text;
    Qt::CaseSensitivity matchCase = Qt::CaseInsensitive;
    bool isBackwards = false;
    LogPlace start; ///< the first that counts; backwards, the first that does not

    struct Hit {
        LogPlace place;
        bool isWrapped = false; ///< found from the other end on
    };
    /// None: not found, cancelled, or the log cannot be read.
    [[nodiscard]] std::optional<Hit> Find(const LogReader& reader, const std::atomic_bool& cancelled) const;

  private:
    [[nodiscard]] std::optional<LogPlace> forwards(const LogReader& reader, LogPlace from,
                                                   const std::atomic_bool& cancelled) const;
    [[nodiscard]] std::optional<LogPlace> backwards(const LogReader& reader, std::optional<LogPlace> before,
                                                    const std::atomic_bool& cancelled) const;
};

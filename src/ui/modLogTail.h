// The end of a log as text. Free function; whatever the path names, it neither waits nor reads without a bound.
#pragma once

#include <QString>
#include <filesystem>
#include <system_error>

namespace modLogTail {

struct Tail {
    QString text;             ///< UTF-8 as text, bytes that are none shown as U+FFFD; empty on an error
    bool isShortened = false; ///< the log is longer: the text begins with the first whole line of its end
    std::error_code error;
};

/// The last `limit` bytes. A line of the text is at most `LongestLine` characters: longer ones, which no log has but
/// some other file may, are broken, because a window would take minutes to show them.
[[nodiscard]] Tail Read(const std::filesystem::path& file, qint64 limit);

constexpr qsizetype LongestLine = 10'000;

} // namespace modLogTail

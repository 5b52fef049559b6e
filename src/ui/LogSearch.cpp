#include "LogSearch.h"

#include <algorithm>

std::optional<LogPlace> LogSearch::forwards(const LogReader& reader, LogPlace from,
                                            const std::atomic_bool& cancelled) const {
    const QStringMatcher matcher(text, matchCase);
    for (qint64 at = from.line; !cancelled;) {
        const LogPart part = reader.From(at);
        for (const LogLine& line : part.lines)
            if (const qsizetype found = matcher.indexIn(line.text, line.begin == from.line ? from.column : 0);
                found >= 0)
                return LogPlace{line.begin, found};
        if (part.error || part.end <= at || part.end >= part.size)
            break;
        at = part.end;
    }
    return std::nullopt;
}

/// Without `before`: from the end of the log.
std::optional<LogPlace> LogSearch::backwards(const LogReader& reader, std::optional<LogPlace> before,
                                             const std::atomic_bool& cancelled) const {
    // The line of the start is part of what is read first.
    LogPart part = before ? reader.Around(before->line) : reader.Last();
    while (!cancelled && !part.error) {
        std::optional<LogPlace> found;
        const auto isHit = [&](const LogLine& line) {
            const bool isFirst = before && line.begin == before->line;
            if ((before && line.begin > before->line) || (isFirst && before->column == 0))
                return false;
            const qsizetype column = line.text.lastIndexOf(text, isFirst ? before->column - 1 : -1, matchCase);
            found = {line.begin, column};
            return column >= 0;
        };
        if (std::any_of(part.lines.rbegin(), part.lines.rend(), isHit))
            return found;
        if (part.begin <= 0)
            break;
        part = reader.Before(part.begin);
    }
    return std::nullopt;
}

std::optional<LogSearch::Hit> LogSearch::Find(const LogReader& reader, const std::atomic_bool& cancelled) const {
    const auto near = isBackwards ? backwards(reader, start, cancelled) : forwards(reader, start, cancelled);
    if (near || cancelled)
        return near ? std::optional(Hit{*near, false}) : std::nullopt;
    const auto far = isBackwards ? backwards(reader, std::nullopt, cancelled) : forwards(reader, {}, cancelled);
    return far ? std::optional(Hit{*far, true}) : std::nullopt;
}

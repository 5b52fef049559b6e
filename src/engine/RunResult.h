// How one run of an activity ended, and what it did. A plain value; JSON that is damaged reads as none.
#pragma once

#include "RunFacts.h"
#include <QDateTime>
#include <QJsonObject>
#include <chrono>
#include <optional>

enum class RunEnding {
    Fine,
    Failed, ///< a failure, a missing directory or a held run
    Early   ///< stopped, or ended with the program, without a failure
};

struct RunResult {
    RunEnding ending = RunEnding::Fine;
    QDateTime at;
    std::chrono::seconds took{0};
    RunCounts done;
    int failures = 0;
    QString reason;        ///< the first failure, or why the run ended early
    QString log;           ///< path of the activity's log; empty when it has none
    std::int64_t line = 0; ///< where in the log the reason, or else the end of the run, stands: an offset in bytes
    bool operator==(const RunResult&) const = default;

    /// RFC 8259; the words are English whatever the language, sizes are bytes.
    [[nodiscard]] QJsonObject ToJson(const RunIdentity& run) const;
    [[nodiscard]] static std::optional<RunResult> FromJson(const QJsonObject& kept);
};

/// True when what is kept was written for an activity with these directories and this action.
[[nodiscard]] bool IsOf(const QJsonObject& kept, const RunIdentity& run);

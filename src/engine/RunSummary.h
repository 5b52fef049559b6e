// A run in words: for logs, mails, notices and the statistics. Pure functions; foreign text comes out harmless.
#pragma once

#include "RunResult.h"
#include <QHash>

class StringTable;

namespace RunSummary {

/// What the run did, how long it took and why it ended, in one line.
[[nodiscard]] QString Sentence(const RunResult& result, const StringTable& texts);

/// By name, without the percent signs: what a mail can tell of a run.
using Variables = QHash<QString, QString>;
[[nodiscard]] Variables VariablesOf(const QString& activity, const RunResult& result, const StringTable& texts);

} // namespace RunSummary

// The report that users send along with a question: program, machine, places. Free function, no failure.
#pragma once

#include <QStringList>

class Program;
struct SystemFacts;

namespace modSystemReport {

/// One line for each fact, "Label:   value", the values below each other.
[[nodiscard]] QString Text(const SystemFacts& facts, Program& program, const QStringList& displays);

} // namespace modSystemReport

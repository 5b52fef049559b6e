// Runs one of the system's small tools, and waits for it where that cannot take long.
#pragma once

#include <QStringList>
#include <chrono>

namespace Tool {

/// Looks the name up along PATH. True when it ended by itself with exit code 0; a tool that takes longer than `limit`
/// is killed. What it complains of goes to our standard error.
[[nodiscard]] bool Run(const QString& name, const QStringList& arguments, std::chrono::milliseconds limit);

/// Starts a program in a session of its own, without our input and output, and does not wait for it.
[[nodiscard]] bool StartDetached(const QString& program, const QStringList& arguments);

} // namespace Tool

// Runs the system's small tools beside the program. Owns their processes. Those that still run at the end are killed,
// and nothing is reported any more.
#pragma once

#include <QObject>
#include <QStringList>
#include <chrono>
#include <functional>

class QProcess;

/// How a tool ended.
struct ToolEnd {
    bool succeeded = false; ///< by itself, with exit code 0
    QByteArray output;      ///< empty unless asked for
    QString complaint;      ///< what it wrote to standard error, or why it could not be started
};

class WatchedTools final {
  public:
    WatchedTools() = default;
    ~WatchedTools();
    WatchedTools(const WatchedTools&) = delete;
    WatchedTools& operator=(const WatchedTools&) = delete;

    /// Always called from the event loop.
    using Listener = std::function<void(const ToolEnd& end)>;

    /// Looks the name up along PATH and starts it in a session of its own, without our input and output.
    void Start(const QString& name, const QStringList& arguments, Listener listener);

    /// The same with its output, and killed when it takes longer than `limit`.
    void Run(const QString& name, const QStringList& arguments, std::chrono::milliseconds limit, Listener listener);

  private:
    void watch(QProcess& process, Listener listener);

    QObject m_processes;
};

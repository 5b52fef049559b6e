// Runs tools beside the program and tells of those that fail. Owns their processes; what still runs at the end is let
// go of, and nothing is told any more.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class WatchedTools final {
  public:
    WatchedTools() = default;
    ~WatchedTools();
    WatchedTools(const WatchedTools&) = delete;
    WatchedTools& operator=(const WatchedTools&) = delete;

    /// Looks the name up along PATH and starts it in a session of its own, without our input and output. `failed` comes
    /// from the event loop when it cannot be started or ends with another exit code than 0.
    void Start(const QString& name, const QStringList& arguments, const std::function<void()>& failed);

  private:
    QObject m_processes;
};

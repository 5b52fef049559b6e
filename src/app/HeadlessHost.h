// Runs the program without a window, for the service manager or a machine without a display. Logs why it is idle and
// closes in order when asked to stop. While another process locks the activity file, or the file cannot be loaded, it
// retries every minute without a further line.
#pragma once

#include "RunEndWaiter.h"
#include "StartUp.h"
#include <QObject>
#include <QTimer>
#include <optional>

class HeadlessLog;
class Program;
struct CommandLine;

/// The whole process without a window: makes everything and runs the event loop. Returns the exit code: 0 after a stop,
/// 1 when another copy runs, 3 when the notice has not been accepted.
[[nodiscard]] int RunHeadless(int& argc, char** argv, const CommandLine& commandLine);

class HeadlessHost final : public QObject, private StartUpFace {
    Q_OBJECT
  public:
    /// Exit code when the notice has not been accepted. Such a start creates and writes nothing.
    static constexpr int NoticeNotAccepted = 3;

    HeadlessHost(Program& program, HeadlessLog& log);

    /// nullopt when the program runs; otherwise the code to exit with.
    [[nodiscard]] std::optional<int> Start(const CommandLine& commandLine);

    /// The closing path without its question, which no user could answer.
    void RequestStop();

  Q_SIGNALS:
    /// No run is left on the stack: the process can exit.
    void Closed();

  private:
    void Appear() override {}
    void ShowState() override {}
    void Minimise() override {}
    bool AcceptsNotice() override { return false; } // Start has checked it before

    void tryAgainLater();
    void tryAgain();

    Program& m_program;
    HeadlessLog& m_log;
    QTimer m_retry{this};
    RunEndWaiter m_waiter;
};

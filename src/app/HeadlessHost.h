// Runs the program without a window, for the service manager or a machine without a display. Starts it, says in the log
// why it is idle, and takes it through the closing path when it is told to stop. While another process has the activity
// file, or the file cannot be loaded, it tries again every minute, in silence.
#pragma once

#include "RunEndWaiter.h"
#include "StartUp.h"
#include <QObject>
#include <QTimer>
#include <optional>

class HeadlessLog;
class Program;
struct CommandLine;

class HeadlessHost final : public QObject, private StartUpFace {
    Q_OBJECT
  public:
    /// Exit code of a start that nobody has accepted the notice for. Such a start creates and writes nothing.
    static constexpr int NoticeNotAccepted = 3;

    HeadlessHost(Program& program, HeadlessLog& log);

    /// nullopt when the program runs; otherwise the code to exit with.
    [[nodiscard]] std::optional<int> Start(const CommandLine& commandLine);

    /// The closing path, without the question: nobody could answer it.
    void RequestStop();

  Q_SIGNALS:
    /// No run is left on the stack: the process can exit.
    void Closed();

  private:
    void Appear() override {}
    void ShowState() override {}
    void Minimise() override {}
    bool AcceptsNotice() override { return false; } // Start lets no start without it come this far

    void tryAgainLater();
    void tryAgain();

    Program& m_program;
    HeadlessLog& m_log;
    QTimer m_retry{this};
    RunEndWaiter m_waiter;
};

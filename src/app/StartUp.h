// The steps of a start in their order, the same with and without a window. Problems are shown in boxes; the start goes
// on with the default file.
#pragma once

class Program;
struct CommandLine;

/// What the window and the headless host do differently during a start.
class StartUpFace {
  public:
    virtual ~StartUpFace() = default;

    /// Before the options are read: texts, position, first sight of the window.
    virtual void Appear() = 0;

    /// The options are read and the list is filled.
    virtual void ShowState() = 0;
    virtual void Minimise() = 0;

    /// Asks the user to accept the notice of possible data loss.
    [[nodiscard]] virtual bool AcceptsNotice() = 0;
};

enum class StartUpResult {
    Running,  ///< everything is ready, the schedulers may tick
    Declined, ///< the notice was not accepted: the process ends with nothing saved
    Ended     ///< the program was asked to end meanwhile
};

[[nodiscard]] StartUpResult RunStartUp(Program& program, const CommandLine& commandLine, StartUpFace& face);

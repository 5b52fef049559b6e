// What is going on in the engine right now, shared by its parts. A plain value owned by the program.
#pragma once

#include <QString>
#include <cstdint>

/// How a run of one activity ended.
struct RunOutcome {
    bool directoryMissing = false;
    int failures = 0;         ///< files or folders that could not be handled
    bool interrupted = false; ///< ended early: closing, a source that went away, a record that was removed
    [[nodiscard]] bool Succeeded() const { return !directoryMissing && failures == 0 && !interrupted; }
};

/// What the run on top of the stack has done so far.
struct RunProgress {
    QString activity;        ///< empty while nothing runs
    std::uint64_t files = 0; ///< copied or moved
    std::uint64_t bytes = 0; ///< of them
};

struct RunState {
    int depth = 0;          ///< runs on the stack
    int mails = 0;          ///< notifications on their way
    bool closing = false;   ///< the program is about to end: finish the present file, then return
    QString lastProcessed;  ///< name of the activity processed last
    bool anyFailed = false; ///< a run had a missing directory or a failure; cleared by whoever has shown it
    RunProgress progress;
    /// Something is under way that must not be cut off, by switching the machine off say.
    [[nodiscard]] bool Running() const { return depth > 0 || mails > 0; }
};

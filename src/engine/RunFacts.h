// The facts of one run: who started it, what it began with, why it ended. Plain values.
#pragma once

#include <QString>
#include <chrono>
#include <cstdint>

class ActivityFile;

/// Who started the run: a scheduled one ends when monitoring is stopped.
enum class RunStarter { Schedule, User };

/// What to do when a directory is not on the drive of the last run.
enum class NewDrive {
    Hold,     ///< the run is held, and says so
    OkIfTold, ///< goes on when the activity was held before: the user has been told
    Ok        ///< goes on
};

/// What a run belongs to: an activity file, a record, and the directories and action of the record. A record of the
/// same name that says anything else is another one, and its rules do not apply to this run.
struct RunIdentity {
    QString activityFile; ///< path
    QString name;
    QString source;      ///< `sourcedir`
    QString destination; ///< `targetdir`
    QString action;

    [[nodiscard]] static RunIdentity Of(const ActivityFile& file, const QString& name);
    bool operator==(const RunIdentity&) const = default;
};

/// What a run has done so far, or in all.
struct RunCounts {
    std::uint64_t copied = 0;
    std::uint64_t moved = 0;     ///< a folder that was moved by one rename counts as one
    std::uint64_t bytes = 0;     ///< of those copied
    std::uint64_t replaced = 0;  ///< of the files, over another one
    std::uint64_t deleted = 0;   ///< files and folders
    std::uint64_t leftAlone = 0; ///< files that needed nothing or must not be touched
    [[nodiscard]] std::uint64_t Files() const { return copied + moved; }
    /// True when anything was changed.
    [[nodiscard]] bool HasDeeds() const { return Files() > 0 || deleted > 0; }
    bool operator==(const RunCounts&) const = default;
};

enum class RunEnd {
    None,
    Closing,         ///< the program ends
    Stopped,         ///< monitoring was stopped
    StoppedByUser,   ///< this run alone
    RecordChanged,   ///< the activity is not the one the run began with, or another file is open
    RootGone,        ///< a root's path leads to another folder, or nowhere
    Unreadable,      ///< a folder of a mirror could not be read to its end
    FolderExchanged, ///< a folder is not the one that was listed
    NotAsApproved,   ///< something is not as the user was shown it before
    TooMany,         ///< it would have deleted or replaced more files than it may
    SafeExit         ///< the emergency key
};

/// An end that the user did not ask for counts as a failure.
[[nodiscard]] bool IsFailure(RunEnd reason);

/// How a run of one activity ended.
struct RunOutcome {
    bool directoryMissing = false;
    int failures = 0;         ///< files or folders that could not be handled
    bool interrupted = false; ///< refused or ended early: what was to be done is not done
    bool held = false;        ///< not begun until something changes: a drive, or the user's mind; counts as a failure
    bool stoppedByUser = false;
    QString reason = {};      ///< the first failure, or why the run ended early
    std::int64_t logLine = 0; ///< where the reason, or else the end of the run, stands in the activity's log; bytes
    std::chrono::seconds settles{0}; ///< files were left out that had not been left untouched for so long; 0: none
    /// True when nothing of it is still to be done.
    [[nodiscard]] bool HasFinished() const { return !interrupted && settles.count() == 0; }
    [[nodiscard]] bool Succeeded() const { return !directoryMissing && failures == 0 && !interrupted; }
};

// What the engine works with, and three interfaces: general options, mail and monitoring, which would otherwise be
// includes that point up or in a circle. Everything named here outlives the engine.
#pragma once

#include <QHash>
#include <QString>

class ActivityFile;
class ActivityList;
class Clock;
class EngineLock;
class FileSystem;
class OwnFiles;
class PowerControl;
class Process;
class Prompter;
class RunResults;
class RunState;
class StringTable;

/// The general options the engine obeys. Read afresh at each use, so a changed option counts at once.
class EngineOptions {
  public:
    virtual ~EngineOptions() = default;

    [[nodiscard]] virtual bool ShutdownWhenIdle() const = 0;
    [[nodiscard]] virtual bool SafeExit() const = 0;
    [[nodiscard]] virtual bool StopOnMissingFolder() const = 0;
    [[nodiscard]] virtual QString ApplicationLog() const = 0;
    [[nodiscard]] virtual bool SummaryInLog() const = 0;
    [[nodiscard]] virtual bool SummaryInMail() const = 0;
    [[nodiscard]] virtual bool EvenIntervals() const = 0;
    [[nodiscard]] virtual bool RunMissed() const = 0;
};

/// Sends the notification after a run. Implementations never throw and never hold up the run for long.
class ActivityMailer {
  public:
    virtual ~ActivityMailer() = default;

    /// `firstPath` is the source folder, `secondPath` the destination. `variables`: what "%NAME%" in the mail's texts
    /// becomes, by NAME. 1 when the procedure ran to its end.
    virtual int SendActivityMail(const QString& name, const QString& firstPath, const QString& secondPath,
                                 const QHash<QString, QString>& variables) = 0;
};

/// What a run may ask of monitoring.
class MonitoringSwitch {
  public:
    virtual ~MonitoringSwitch() = default;

    /// Asked again whenever events may have run: nothing more is started once it is off.
    [[nodiscard]] virtual bool IsOn() const = 0;

    /// A run has ended with which its activity is done for good, its box cleared: once-only or one-time. What ends
    /// monitoring after that may also switch the machine off.
    virtual void ActivityDone() = 0;

    /// Ends monitoring; does no harm when it is off.
    virtual void StopMonitoring() = 0;

    /// Writes every row's idle or active status, and ends monitoring when no row is checked, no run is going on
    /// and the activity file is loaded.
    virtual void CheckAllIdle() = 0;
};

struct EngineServices {
    ActivityFile& file;
    ActivityList& list;
    const EngineOptions& options;
    const StringTable& texts;
    Prompter& prompter;
    RunState& runState;
    RunResults& results;
    EngineLock& lock;
    const Clock& clock;
    FileSystem& fileSystem;
    OwnFiles& ownFiles;
    Process& process;
    PowerControl& power;
};

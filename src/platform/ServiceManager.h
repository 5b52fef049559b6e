// The system's service manager (systemd, Windows SCM): installs, removes, starts and stops our service, and hears its
// notices. Requests that take time run beside the program. Without a service manager the notices go nowhere.
#pragma once

#include <QString>
#include <functional>

/// What the service manager wants of the process. That it ends may also come as the system's TerminationSignal.
enum class ServiceControl { Pause, Continue, Stop };

/// Kinds of entries in the event log; the numbers are fixed.
enum class ServiceEvent { Error = 1, Warning = 2, Information = 4 };

struct ServiceState {
    enum class Kind { Unknown, NotInstalled, Stopped, Running, Failed };
    Kind kind = Kind::Unknown;
    QString reason; ///< of Unknown and Failed, in the system's words
};

class ServiceManager {
  public:
    virtual ~ServiceManager() = default;

    /// Called once, from the event loop or before the request returns; never after the manager is gone. `reason` says
    /// in the system's words why the request failed, as far as the system gave any.
    using Outcome = std::function<void(bool succeeded, const QString& reason)>;

    /// Registers the service for this user, to be started with the session. A failure leaves everything as before.
    virtual void Install(Outcome outcome) = 0;

    /// Removes what Install made; fails when it was not there. A running service goes on.
    virtual void Uninstall(Outcome outcome) = 0;

    /// Like an Outcome: once, and never after the manager is gone.
    using StateListener = std::function<void(const ServiceState& state)>;
    virtual void QueryState(StateListener listener) = 0;

    /// Requests the start or the stop of the service of this name without waiting for it. False when the request cannot
    /// be made.
    [[nodiscard]] virtual bool Start(const QString& service) = 0;
    [[nodiscard]] virtual bool Stop(const QString& service) = 0;

    /// Told from the event loop, in the order in which they came, until the manager is destroyed.
    using ControlListener = std::function<void(ServiceControl control)>;

    /// For a process that the service manager starts, as the first thing it does: Windows waits for 30 seconds only.
    virtual void Connect() = 0;

    /// From now on this process obeys the service manager. False, with nothing changed, in one that no service
    /// manager started; `debug`: such a one too listens, as far as the system has a way to reach it. A
    /// QCoreApplication must exist; the second call in a process is refused.
    [[nodiscard]] virtual bool AcceptControls(bool debug, ControlListener listener) = 0;

    /// Notices to the service manager: the start is complete; the end has begun; the process ends with this exit code,
    /// which is 0 unless the service has failed.
    virtual void NotifyReady() = 0;
    virtual void NotifyStopping() = 0;
    virtual void NotifyEnd(int exitCode) = 0;

    /// One entry in the event log.
    virtual void LogEvent(ServiceEvent type, int id, const QString& text) = 0;
};

// The part of the system that runs services: ours is put in and out of it, started and stopped, and tells it of its
// state. Owns nothing; what fails is told by the results, and without a service manager the notices go nowhere.
#pragma once

#include <QString>
#include <functional>

/// What the service manager wants of the process. That it ends may also come as the system's TerminationSignal.
enum class ServiceControl { Pause, Continue, Stop };

/// Kinds of entries in the event log; the numbers are fixed.
enum class ServiceEvent { Error = 1, Warning = 2, Information = 4 };

class ServiceManager {
  public:
    virtual ~ServiceManager() = default;

    /// Registers the service for this user, to be started with the session; false with everything as before.
    [[nodiscard]] virtual bool Install() = 0;

    /// Removes what Install made; false when it was not there or the system refused. A running service goes on.
    [[nodiscard]] virtual bool Uninstall() = 0;

    /// Asks for the start or the stop of the service of this name and does not wait for it. False when there is nobody
    /// to ask.
    [[nodiscard]] virtual bool Start(const QString& service) = 0;
    [[nodiscard]] virtual bool Stop(const QString& service) = 0;

    /// Told from the event loop, in the order in which they came, until the manager is destroyed.
    using ControlListener = std::function<void(ServiceControl control)>;

    /// From now on this process answers the service manager. False, with nothing changed, in one that no service
    /// manager started; `debug`: such a one too listens, as far as the system has a way to reach it. A
    /// QCoreApplication must exist; the second call in a process is refused.
    [[nodiscard]] virtual bool AcceptControls(bool debug, ControlListener listener) = 0;

    /// Notices to the service manager: the start is complete; the end has begun.
    virtual void NotifyReady() = 0;
    virtual void NotifyStopping() = 0;

    /// One entry in the event log.
    virtual void LogEvent(ServiceEvent type, int id, const QString& text) = 0;
};

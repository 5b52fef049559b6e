// The part of the system that runs services: ours is put in and out of it, started and stopped, and tells it of its
// state. Owns nothing; what fails is told by the results, and without a service manager the notices go nowhere.
#pragma once

#include <QString>

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

    /// True in a process that the service manager started and listens to.
    [[nodiscard]] virtual bool RunsThisProcess() const = 0;

    /// Notices to the service manager: the start is complete; the end has begun; what is going on, in one line.
    virtual void NotifyReady() = 0;
    virtual void NotifyStopping() = 0;
    virtual void NotifyStatus(const QString& text) = 0;

    /// One entry in the event log.
    virtual void LogEvent(ServiceEvent type, int id, const QString& text) = 0;
};

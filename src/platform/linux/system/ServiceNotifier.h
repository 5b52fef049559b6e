// Tells systemd how the service fares: one datagram to the socket that $NOTIFY_SOCKET names, as sd_notify(3) describes.
// Owns the socket's name only; without one, or when nobody listens, the notices are lost.
#pragma once

#include <QByteArray>

class ServiceNotifier final {
  public:
    /// A path, or "@" and a name in the abstract namespace; "" for nobody.
    explicit ServiceNotifier(QByteArray socketName) : m_socketName(std::move(socketName)) {}

    /// Takes the name out of the environment: programs started from here are not the service.
    [[nodiscard]] static ServiceNotifier FromEnvironment();

    [[nodiscard]] bool HasListener() const { return !m_socketName.isEmpty(); }

    /// `assignment` is one line of the form "READY=1".
    void Send(const QByteArray& assignment) const;

  private:
    QByteArray m_socketName;
};

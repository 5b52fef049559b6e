// The two texts that a service and systemd exchange: the unit file that makes a service of this program, and the
// notices of a running one. Without a listener the notices are lost.
#pragma once

#include <QByteArray>
#include <filesystem>
#include <optional>

namespace ServiceUnit {

inline constexpr const char* FileName = "KalvenorPro.service";

/// The whole unit, see systemd.unit(5) and systemd.service(5). nullopt when systemd would refuse to start a program of
/// this name: one with quotes, backslashes or control characters, or with bytes that are not UTF-8.
[[nodiscard]] std::optional<QByteArray> Text(const std::filesystem::path& program);

} // namespace ServiceUnit

/// Sends one datagram per notice to the socket that $NOTIFY_SOCKET names, as sd_notify(3) describes.
class ServiceNotifier final {
  public:
    /// A path, or "@" and a name in the abstract namespace; "" when there is no listener.
    explicit ServiceNotifier(QByteArray socketName) : m_socketName(std::move(socketName)) {}

    /// Removes the name from the environment: programs started from here are not the service.
    [[nodiscard]] static ServiceNotifier FromEnvironment();

    [[nodiscard]] bool HasListener() const { return !m_socketName.isEmpty(); }

    /// `assignment` is one line of the form "READY=1".
    void Send(const QByteArray& assignment) const;

  private:
    QByteArray m_socketName;
};

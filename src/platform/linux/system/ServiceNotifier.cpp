#include "ServiceNotifier.h"

#include "FileDescriptor.h"
#include <QtGlobal>
#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

namespace {

constexpr const char* variable = "NOTIFY_SOCKET";
constexpr timeval patience{5, 0}; // with a service manager that does not read

} // namespace

ServiceNotifier ServiceNotifier::FromEnvironment() {
    ServiceNotifier notifier(qgetenv(variable));
    qunsetenv(variable);
    return notifier;
}

void ServiceNotifier::Send(const QByteArray& assignment) const {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const auto length = static_cast<std::size_t>(m_socketName.size());
    const bool abstract = m_socketName.startsWith('@');
    if (!(abstract || m_socketName.startsWith('/')) || length >= sizeof address.sun_path)
        return;
    std::copy(m_socketName.begin(), m_socketName.end(), std::begin(address.sun_path));
    if (abstract)
        address.sun_path[0] = '\0';
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!socket.IsOpen())
        return;
    setsockopt(socket.Get(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    // An abstract name has no end of its own: its length is that of the address.
    const auto addressLength = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length);
    while (sendto(socket.Get(), assignment.constData(), static_cast<std::size_t>(assignment.size()), MSG_NOSIGNAL,
                  reinterpret_cast<const sockaddr*>(&address), addressLength) < 0 &&
           errno == EINTR) {
    }
}

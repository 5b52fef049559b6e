#include "Systemd.h"

#include "SystemCall.h"
#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <cstddef>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

namespace {

constexpr const char* variable = "NOTIFY_SOCKET";
constexpr timeval patience{5, 0}; // in case the service manager does not read

bool isAllowed(const QByteArray& program) {
    const auto isTaboo = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7f || c == '"' || c == '\'' || c == '\\';
    };
    return program.startsWith('/') && std::none_of(program.begin(), program.end(), isTaboo) &&
           QString::fromUtf8(program).toUtf8() == program;
}

} // namespace

std::optional<QByteArray> ServiceUnit::Text(const std::filesystem::path& program) {
    QByteArray path = QByteArray::fromStdString(program.native());
    if (!isAllowed(path))
        return std::nullopt;
    path.replace('%', "%%"); // a single one starts a specifier, even in quotes
    // Programs that an activity has started belong to the user and outlive the service, as they outlive the window. A
    // killed service is restarted, but not one that waits for the legal notice to be accepted (exit code 3).
    return "[Unit]\n"
           "Description=Kalvenor Pro\n"
           "ConditionFileIsExecutable=" + // the unit may outlive the program
           path +
           "\n"
           "\n"
           "[Service]\n"
           "Type=notify\n"
           "ExecStart='" +
           path +
           "' STARTSERVICE\n"
           "KillMode=process\n"
           "Restart=on-failure\n"
           "RestartSec=30\n"
           "RestartPreventExitStatus=3\n"
           "\n"
           "[Install]\n"
           "WantedBy=default.target\n"
           "Alias=Kalvenor.service\n";
}

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
    // An abstract name is not terminated: the length of the address counts.
    const auto addressLength = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length);
    while (sendto(socket.Get(), assignment.constData(), static_cast<std::size_t>(assignment.size()), MSG_NOSIGNAL,
                  reinterpret_cast<const sockaddr*>(&address), addressLength) < 0 &&
           errno == EINTR) {
    }
}

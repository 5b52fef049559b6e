#include "HostLookUp.h"
#include "modSocketQueue.h"

#include <array>
#include <memory>
#include <winsock2.h>
#include <ws2tcpip.h>

namespace {

/// Counted by the system; a look-up may come before Qt's first socket.
class SocketLibrary final {
  public:
    SocketLibrary() : m_started(WSAStartup(MAKEWORD(2, 2), &m_data) == 0) {}
    ~SocketLibrary() {
        if (m_started)
            WSACleanup();
    }
    SocketLibrary(const SocketLibrary&) = delete;
    SocketLibrary& operator=(const SocketLibrary&) = delete;

  private:
    WSADATA m_data{};
    bool m_started;
};

} // namespace

QStringList LookUpAddresses(const QByteArray& host) {
    const SocketLibrary started;
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_ADDRCONFIG;
    addrinfo* found = nullptr;
    if (::getaddrinfo(host.constData(), nullptr, &hints, &found) != 0)
        return {};
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> owner(found, &::freeaddrinfo);
    QStringList addresses;
    for (const addrinfo* one = found; one != nullptr; one = one->ai_next) {
        std::array<char, NI_MAXHOST> text{};
        if (::getnameinfo(one->ai_addr, static_cast<socklen_t>(one->ai_addrlen), text.data(),
                          static_cast<DWORD>(text.size()), nullptr, 0, NI_NUMERICHOST) == 0)
            addresses.append(QString::fromLatin1(text.data()));
    }
    return addresses;
}

qint64 modSocketQueue::Untaken(qintptr /*descriptor*/) {
    return 0; // told by the newest versions of the system only
}

#include "HostLookUp.h"

#include "SocketCalls.h"
#include <array>
#include <memory>

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
        if (::getnameinfo(one->ai_addr, static_cast<socklen_t>(one->ai_addrlen), text.data(), NI_MAXHOST, nullptr, 0,
                          NI_NUMERICHOST) == 0)
            addresses.append(QString::fromLatin1(text.data()));
    }
    return addresses;
}

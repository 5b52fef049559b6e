#include "HostLookUp.h"
#include "modSocketQueue.h"

#include <array>
#include <linux/sockios.h>
#include <memory>
#include <netdb.h>
#include <sys/ioctl.h>

QStringList LookUpAddresses(const QByteArray& host) {
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
        if (::getnameinfo(one->ai_addr, one->ai_addrlen, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) == 0)
            addresses.append(QString::fromLatin1(text.data()));
    }
    return addresses;
}

qint64 modSocketQueue::Untaken(qintptr descriptor) {
    int bytes = 0;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system has no other call for it
    return ::ioctl(static_cast<int>(descriptor), SIOCOUTQ, &bytes) == 0 ? bytes : 0;
}

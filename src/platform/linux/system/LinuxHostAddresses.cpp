#include "HostAddresses.h"

#include "modSocketQueue.h"
#include <array>
#include <linux/sockios.h>
#include <mutex>
#include <netdb.h>
#include <sys/ioctl.h>
#include <system_error>
#include <thread>

/// Shared with the helper thread. Cancelling clears the receiver.
struct HostAddresses::LookUp {
    std::mutex mutex;
    HostAddresses* receiver = nullptr;
};

namespace {

QStringList addressesOf(const QByteArray& host) {
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

} // namespace

HostAddresses::HostAddresses() = default;

HostAddresses::~HostAddresses() {
    Cancel();
}

void HostAddresses::Cancel() {
    if (const std::shared_ptr<LookUp> dropped = std::exchange(m_present, nullptr)) {
        const std::lock_guard lock(dropped->mutex);
        dropped->receiver = nullptr;
    }
}

void HostAddresses::Begin(const QByteArray& host) {
    Cancel();
    m_present = std::make_shared<LookUp>();
    m_present->receiver = this;
    const auto answer = [lookUp = m_present](const QStringList& addresses) {
        const std::lock_guard lock(lookUp->mutex);
        if (lookUp->receiver == nullptr)
            return;
        const auto tell = [lookUp, addresses] {
            // Runs in the receiver's thread, the only one that changes the receiver.
            if (lookUp->receiver != nullptr)
                Q_EMIT lookUp->receiver->Found(addresses);
        };
        QMetaObject::invokeMethod(lookUp->receiver, tell, Qt::QueuedConnection);
    };
    try {
        // getaddrinfo cannot be interrupted, so the thread is detached.
        std::thread([answer, host] { answer(addressesOf(host)); }).detach();
    } catch (const std::system_error&) {
        answer({});
    }
}

qint64 modSocketQueue::Untaken(qintptr descriptor) {
    int bytes = 0;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system has no other call for it
    return ::ioctl(static_cast<int>(descriptor), SIOCOUTQ, &bytes) == 0 ? bytes : 0;
}

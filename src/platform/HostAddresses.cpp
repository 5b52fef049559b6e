#include "HostAddresses.h"

#include "HostLookUp.h"
#include <mutex>
#include <system_error>
#include <thread>

/// Shared with the helper thread. Cancelling clears the receiver.
struct HostAddresses::LookUp {
    std::mutex mutex;
    HostAddresses* receiver = nullptr;
};

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
        // The look-up cannot be interrupted, so the thread is detached.
        std::thread([answer, host] { answer(LookUpAddresses(host)); }).detach();
    } catch (const std::system_error&) {
        answer({});
    }
}

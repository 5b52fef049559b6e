#include "BackgroundTask.h"
#include "FileSystem.h"
#include "SystemCall.h"

#include <chrono>

namespace {
constexpr std::chrono::milliseconds progressInterval{50};
} // namespace

BackgroundTask::~BackgroundTask() {
    if (m_work.valid())
        m_work.wait();
}

void BackgroundTask::Start(const std::function<void()>& work) {
    try {
        const BlockedSignals noSignals;
        m_work = std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        m_work = {};
    }
    if (!m_work.valid())
        work();
}

void BackgroundTask::Wait(TransferObserver& observer) {
    while (m_work.valid() && m_work.wait_for(progressInterval) != std::future_status::ready)
        observer.Progress(0);
    if (m_work.valid())
        m_work.get();
}

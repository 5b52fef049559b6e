#include "BackgroundRead.h"

#include <chrono>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace {

constexpr std::chrono::milliseconds patience{200};

} // namespace

/// Ends with the window, not with the job.
struct BackgroundRead::Link {
    std::mutex mutex;
    BackgroundRead* owner = nullptr;
};

BackgroundRead::BackgroundRead() : m_link(std::make_shared<Link>()) {
    m_link->owner = this;
}

BackgroundRead::~BackgroundRead() {
    Cancel();
    {
        const std::lock_guard lock(m_link->mutex);
        m_link->owner = nullptr;
    }
    if (m_job.valid())
        m_job.wait_for(patience);
}

void BackgroundRead::Cancel() {
    m_next.reset();
    if (m_cancelled)
        *m_cancelled = true;
}

void BackgroundRead::Run(Job job) {
    Cancel();
    if (m_isBusy)
        m_next = std::move(job);
    else
        start(job);
}

void BackgroundRead::start(const Job& job) {
    m_cancelled = std::make_shared<std::atomic_bool>(false);
    std::packaged_task<void()> task([job, link = m_link, cancelled = m_cancelled] {
        const Then then = job(*cancelled);
        const std::lock_guard lock(link->mutex);
        if (link->owner == nullptr)
            return;
        QMetaObject::invokeMethod(
            &link->owner->m_context, [owner = link->owner, then, cancelled] { owner->ended(then, *cancelled); },
            Qt::QueuedConnection);
    });
    m_job = task.get_future();
    m_isBusy = true;
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error&) {
        m_isBusy = false; // nothing is read now; the user or the next look tries again
    }
}

void BackgroundRead::ended(const Then& then, bool isCancelled) {
    m_isBusy = false;
    if (m_next)
        start(*std::exchange(m_next, std::nullopt));
    else if (!isCancelled)
        then();
}

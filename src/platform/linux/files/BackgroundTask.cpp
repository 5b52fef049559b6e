#include "BackgroundTask.h"

#include <chrono>
#include <csignal>
#include <pthread.h>

namespace {

constexpr std::chrono::milliseconds kSignOfLife{50};

} // namespace

BackgroundTask::~BackgroundTask() {
    if (m_work.valid())
        m_work.wait();
}

void BackgroundTask::Start(const std::function<void()>& work) {
    // Signals belong to the thread that runs the events.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    try {
        m_work = std::async(std::launch::async, work);
    } catch (const std::system_error&) {
        m_work = {};
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (!m_work.valid())
        work();
}

void BackgroundTask::Wait(TransferObserver& observer) {
    while (m_work.valid() && m_work.wait_for(kSignOfLife) != std::future_status::ready)
        observer.Progress(0);
    if (m_work.valid())
        m_work.get();
}

// One piece of work on a helper thread. Where no thread can be had it is done at once.
#pragma once

#include <functional>
#include <future>

class TransferObserver;

class BackgroundTask final {
  public:
    BackgroundTask() = default;
    BackgroundTask(const BackgroundTask&) = delete;
    BackgroundTask& operator=(const BackgroundTask&) = delete;
    ~BackgroundTask();

    /// The work must not throw.
    void Start(const std::function<void()>& work);

    /// Returns when the work is done. Until then it reports progress (0 bytes) to the observer several times a second.
    /// The observer may call Wait again: then both calls return.
    void Wait(TransferObserver& observer);

  private:
    std::future<void> m_work;
};

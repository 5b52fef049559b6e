// Runs one piece of work beside the calling thread, which meanwhile goes on or keeps its events alive. Where no thread
// can be had the work is done at once. The work itself must not throw.
#pragma once

#include "FileTransfer.h"

#include <future>

class BackgroundTask final {
  public:
    BackgroundTask() = default;
    BackgroundTask(const BackgroundTask&) = delete;
    BackgroundTask& operator=(const BackgroundTask&) = delete;
    ~BackgroundTask();

    void Start(const std::function<void()>& work);

    /// Returns when the work is done; `observer` is told of progress (0 bytes) several times a second until then, and
    /// may come back here: both calls return then.
    void Wait(TransferObserver& observer);

  private:
    std::future<void> m_work;
};

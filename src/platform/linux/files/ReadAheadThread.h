// The thread that reads folders ahead. Owns the orders that wait and the thread, which starts with the first one. Where
// no thread can be had nothing is read ahead.
#pragma once

#include "ReadAhead.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

class ReadAheadThread final {
  public:
    ReadAheadThread() = default;
    ReadAheadThread(const ReadAheadThread&) = delete;
    ReadAheadThread& operator=(const ReadAheadThread&) = delete;
    /// Waits for the folder that is being listed.
    ~ReadAheadThread();

    /// Null when there is no thread. Few orders are under way at a time: the oldest is given up for a new one.
    [[nodiscard]] std::unique_ptr<ReadAhead> Begin(ReadAhead::Order order);

  private:
    struct Work;
    class Ticket;
    [[nodiscard]] bool start();
    void run();
    void giveUp(std::shared_ptr<Work> work);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::shared_ptr<Work>> m_orders; ///< waiting, running and done; the thread touches nothing else
    bool m_isOver = false;
    std::thread m_thread;
};

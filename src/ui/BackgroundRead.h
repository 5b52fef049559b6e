// Reads what a window shows without making the window wait: one job at a time, on a thread of its own. A drive that
// does not answer holds that thread, not the window; a job that is held outlives this object and touches nothing but
// itself.
#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <optional>

class BackgroundRead final {
  public:
    /// What to do with what was read, on the thread of the window.
    using Then = std::function<void()>;
    /// May end early once it is cancelled. Must not throw.
    using Job = std::function<Then(const std::atomic_bool& cancelled)>;

    BackgroundRead();
    /// Waits a moment for the job, so that none is left when the process ends, unless a drive holds it.
    ~BackgroundRead();
    BackgroundRead(const BackgroundRead&) = delete;
    BackgroundRead& operator=(const BackgroundRead&) = delete;

    /// Cancels the job under way, whose result is dropped, and starts this one when that has ended.
    void Run(Job job);
    void Cancel();
    [[nodiscard]] bool IsBusy() const { return m_isBusy; }

  private:
    struct Link;
    void start(const Job& job);
    void ended(const Then& then, bool isCancelled);

    QObject m_context; ///< of what the job hands over: nothing arrives once it has gone
    std::shared_ptr<Link> m_link;
    std::shared_ptr<std::atomic_bool> m_cancelled;
    std::future<void> m_job;
    std::optional<Job> m_next;
    bool m_isBusy = false;
};

#include "ReadAheadThread.h"
#include "SystemCall.h"

#include <algorithm>
#include <atomic>

namespace {
/// Each holds a folder open.
constexpr std::size_t mostAhead = 6;
constexpr std::chrono::milliseconds waitInterval{50};

enum class State { Waiting, Running, Done, GivenUp };
} // namespace

struct ReadAheadThread::Work {
    explicit Work(ReadAhead::Order what) : order(std::move(what)) {}
    [[nodiscard]] bool Read(ReadAhead::Result& read) const;
    void LookIntoDestination(ReadAhead::Result& read) const;

    const ReadAhead::Order order;
    State state = State::Waiting;
    std::atomic<bool> isWanted = false; ///< somebody waits for it
    ReadAhead::Result result{};         ///< when it is Done
};

class ReadAheadThread::Ticket final : public ReadAhead {
  public:
    Ticket(ReadAheadThread& thread, std::shared_ptr<Work> work) : m_thread(thread), m_work(std::move(work)) {}
    ~Ticket() override {
        const std::lock_guard lock(m_thread.m_mutex);
        m_thread.giveUp(m_work);
    }
    Ticket(const Ticket&) = delete;
    Ticket& operator=(const Ticket&) = delete;

    std::optional<Result> Take(const std::function<void()>& wait) override {
        std::unique_lock lock(m_thread.m_mutex);
        if (m_work->state == State::Waiting)
            return std::nullopt; // the caller is as fast
        m_work->isWanted = true;
        while (!m_thread.m_changed.wait_for(lock, waitInterval, [this] { return m_work->state != State::Running; })) {
            lock.unlock();
            wait();
            lock.lock();
        }
        return m_work->state == State::Done ? std::optional(std::move(m_work->result)) : std::nullopt;
    }

  private:
    ReadAheadThread& m_thread;
    std::shared_ptr<Work> m_work;
};

ReadAheadThread::~ReadAheadThread() {
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

std::unique_ptr<ReadAhead> ReadAheadThread::Begin(ReadAhead::Order order) {
    if (!m_thread.joinable() && !start())
        return nullptr;
    const auto work = std::make_shared<Work>(std::move(order));
    const std::lock_guard lock(m_mutex);
    if (m_orders.size() >= mostAhead)
        giveUp(m_orders.front());
    m_orders.push_back(work);
    m_changed.notify_all();
    return std::make_unique<Ticket>(*this, work);
}

/// With the mutex held.
void ReadAheadThread::giveUp(std::shared_ptr<Work> work) {
    std::erase(m_orders, work);
    work->state = State::GivenUp;
    work->isWanted = true;
    work->result = {};
}

bool ReadAheadThread::start() {
    const BlockedSignals noSignals;
    try {
        m_thread = std::thread([this] { run(); });
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

void ReadAheadThread::run() {
    std::unique_lock lock(m_mutex);
    while (!m_isOver) {
        const auto next = std::find_if(m_orders.begin(), m_orders.end(),
                                       [](const auto& work) { return work->state == State::Waiting; });
        if (next == m_orders.end()) {
            m_changed.wait(lock);
            continue;
        }
        const std::shared_ptr<Work> work = *next;
        work->state = State::Running;
        lock.unlock();
        ReadAhead::Result result;
        const bool isRead = work->Read(result);
        lock.lock();
        if (work->state == State::Running) {
            work->state = isRead ? State::Done : State::GivenUp;
            work->result = std::move(result);
            m_changed.notify_all();
        }
    }
}

bool ReadAheadThread::Work::Read(ReadAhead::Result& read) const {
    std::error_code error;
    read.source = order.source->OpenChild(order.entry, error);
    if (!read.source || read.source->List(read.entries))
        return false;
    const std::optional<FileFacts> found = order.destination->Stat(order.entry.name, error);
    if (found && found->kind == EntryKind::Folder && found->id != order.entry.facts.id)
        read.destination = order.destination->OpenChild({order.entry.name, *found}, error);
    if (read.destination)
        LookIntoDestination(read);
    return true;
}

void ReadAheadThread::Work::LookIntoDestination(ReadAhead::Result& read) const {
    if (order.listsDestination) {
        if (read.destination->List(read.found))
            read.destination.reset();
        return;
    }
    read.destination->FindLeftovers();
    for (const FolderEntry& entry : read.entries) {
        if (isWanted)
            return;
        std::error_code error;
        if (entry.facts.kind != EntryKind::File)
            continue;
        if (const std::optional<FileFacts> facts = read.destination->Stat(entry.name, error))
            read.found.push_back({entry.name, *facts});
    }
}

#include "TerminationSignal.h"

#include "FileDescriptor.h"
#include <QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <utility>
#include <vector>

namespace {

// A signal handler gets no argument of ours: the pipe's end is all it can reach, and write is all it may do.
std::atomic<int> pipeForHandler = -1;
static_assert(std::atomic<int>::is_always_lock_free, "the handler must not wait for a lock");

void wakeEventLoop(int) {
    const int before = errno;
    const char byte = 0;
    // A full pipe is as good as a written one: the loop will wake anyway.
    [[maybe_unused]] const ssize_t written = write(pipeForHandler.load(), &byte, 1);
    errno = before;
}

} // namespace

class TerminationSignal::Handlers final {
  public:
    explicit Handlers(TerminationSignal& owner) {
        std::array<int, 2> ends{-1, -1};
        if (pipeForHandler.load() != -1 || pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
            return;
        m_readEnd = FileDescriptor(ends[0]);
        m_writeEnd = FileDescriptor(ends[1]);
        pipeForHandler = ends[1];
        m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, &owner, [this, &owner] {
            drain();
            Q_EMIT owner.Raised();
        });
        for (const int number : {SIGTERM, SIGINT, SIGHUP})
            install(number);
    }

    ~Handlers() {
        for (const auto& [number, action] : m_before)
            sigaction(number, &action, nullptr);
        if (m_writeEnd.IsOpen())
            pipeForHandler = -1;
    }

    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;

  private:
    void install(int number) {
        struct sigaction before {};
        struct sigaction ours {};
        ours.sa_handler = wakeEventLoop;
        ours.sa_flags = SA_RESTART;
        sigemptyset(&ours.sa_mask);
        if (sigaction(number, nullptr, &before) != 0 || before.sa_handler == SIG_IGN)
            return;
        if (sigaction(number, &ours, nullptr) == 0)
            m_before.emplace_back(number, before);
    }

    void drain() const {
        std::array<char, 64> bytes{};
        while (read(m_readEnd.Get(), bytes.data(), bytes.size()) > 0) {
        }
    }

    FileDescriptor m_readEnd;
    FileDescriptor m_writeEnd;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<std::pair<int, struct sigaction>> m_before;
};

TerminationSignal::TerminationSignal(QObject* parent)
    : QObject(parent), m_handlers(std::make_unique<Handlers>(*this)) {}

TerminationSignal::~TerminationSignal() = default;

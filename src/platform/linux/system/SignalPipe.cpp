#include "SignalPipe.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>

namespace {

constexpr int noPipe = -1;

/// The write end of the pipe for each signal. A handler takes no argument, so it can only reach globals; of all system
/// calls it needs only write.
struct WriteEnd {
    std::atomic<int> descriptor = noPipe;
};
std::array<WriteEnd, NSIG> writeEnds;
static_assert(std::atomic<int>::is_always_lock_free, "the handler must not wait for a lock");
static_assert(NSIG <= 256, "a signal's number fits into one byte");

std::atomic<int>& writeEndOf(int number) {
    return writeEnds.at(static_cast<std::size_t>(number)).descriptor;
}

void wakeEventLoop(int number) {
    const int before = errno;
    const auto byte = static_cast<unsigned char>(number);
    // When the pipe is full, the loop wakes anyway.
    [[maybe_unused]] const ssize_t written =
        write(writeEnds[static_cast<std::size_t>(number)].descriptor.load(), &byte, 1);
    errno = before;
}

} // namespace

SignalPipe::SignalPipe(std::initializer_list<int> numbers, Listener listener) {
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_readEnd = FileDescriptor(ends[0]);
    m_writeEnd = FileDescriptor(ends[1]);
    m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this, tell = std::move(listener)] { tell(drain()); });
    for (const int number : numbers)
        install(number);
}

SignalPipe::~SignalPipe() {
    for (const auto& [number, action] : m_before) {
        sigaction(number, &action, nullptr);
        writeEndOf(number) = noPipe;
    }
}

void SignalPipe::install(int number) {
    struct sigaction before {};
    struct sigaction ours {};
    ours.sa_handler = wakeEventLoop;
    ours.sa_flags = SA_RESTART;
    sigemptyset(&ours.sa_mask);
    if (writeEndOf(number) != noPipe || sigaction(number, nullptr, &before) != 0 || before.sa_handler == SIG_IGN)
        return;
    writeEndOf(number) = m_writeEnd.Get();
    if (sigaction(number, &ours, nullptr) == 0)
        m_before.emplace_back(number, before);
    else
        writeEndOf(number) = noPipe;
}

std::vector<int> SignalPipe::drain() const {
    std::vector<int> numbers;
    std::array<unsigned char, 64> bytes{};
    for (ssize_t count = 0; (count = read(m_readEnd.Get(), bytes.data(), bytes.size())) > 0;)
        numbers.insert(numbers.end(), bytes.begin(), bytes.begin() + count);
    return numbers;
}

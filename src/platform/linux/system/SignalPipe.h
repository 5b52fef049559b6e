// Delivers signals to the event loop: the handler writes one byte into a pipe, the loop reads it. Owns the handlers and
// the pipe. Leaves a signal alone that the parent process ignores or that another SignalPipe handles, and all of them
// when no pipe can be created.
#pragma once

#include "SystemCall.h"
#include <QSocketNotifier>
#include <csignal>
#include <functional>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

class SignalPipe final {
  public:
    /// The signals of one burst, in the order in which they came.
    using Listener = std::function<void(const std::vector<int>& numbers)>;

    SignalPipe(std::initializer_list<int> numbers, Listener listener);
    ~SignalPipe();
    Q_DISABLE_COPY_MOVE(SignalPipe)

  private:
    void install(int number);
    [[nodiscard]] std::vector<int> drain() const;

    FileDescriptor m_readEnd;
    FileDescriptor m_writeEnd;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<std::pair<int, struct sigaction>> m_before;
};

// Brings signals of the system into the event loop: their handler writes one byte into a pipe, the loop reads it. Owns
// the handlers and the pipe while it lives. A signal that is ignored from outside, or that another pipe has already, is
// left alone; so is everything when there is no pipe to be had.
#pragma once

#include "FileDescriptor.h"
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

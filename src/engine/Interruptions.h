// The one door through which a run lets anything else happen: a message box, or pending events. Counts them; what a run
// saw before an interruption may be stale after it.
#pragma once

#include <QTimer>
#include <chrono>
#include <vector>

class Clock;
class EventPump;
class FileTransfer;
class Prompter;
enum class MessageAnswer;
struct Message;

class Interruptions final {
  public:
    Interruptions(Prompter& prompter, EventPump& pump, const Clock& clock);
    Interruptions(const Interruptions&) = delete;
    Interruptions& operator=(const Interruptions&) = delete;

    /// Commits what the runs on the stack have staged, then shows a box: the answer may take an hour.
    MessageAnswer Ask(const Message& message);

    /// Handles pending events. If that takes long (another box, another run), commits what is staged.
    void Yield();

    /// The same, at most every 50 ms.
    void YieldWhenDue();

    [[nodiscard]] std::chrono::steady_clock::time_point Now() const;

    /// Grows with every interruption.
    [[nodiscard]] unsigned Count() const { return m_count; }

    /// Makes a run's transfer known from its start to its end. Runs end in the reverse order of their starts.
    class Staging final {
      public:
        Staging(Interruptions& interruptions, FileTransfer& transfer) : m_transfers(interruptions.m_transfers) {
            m_transfers.push_back(&transfer);
        }
        ~Staging() { m_transfers.pop_back(); }
        Staging(const Staging&) = delete;
        Staging& operator=(const Staging&) = delete;

      private:
        std::vector<FileTransfer*>& m_transfers;
    };

  private:
    void commitAll();

    Prompter& m_prompter;
    EventPump& m_pump;
    const Clock& m_clock;
    QTimer m_longYield;
    std::vector<FileTransfer*> m_transfers; ///< of the runs on the stack, the innermost last
    std::chrono::steady_clock::time_point m_lastYield;
    unsigned m_count = 0;
    int m_yields = 0; ///< on the stack
};

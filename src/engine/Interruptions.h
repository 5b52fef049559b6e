// The one door through which a run lets anything else happen: a message box, or the events that wait. Owns the count of
// those times; what was looked at before one of them may be stale after it. Cannot fail.
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

    /// Shows a box, after everything that the runs on the stack have staged is in place: the answer may take an hour.
    MessageAnswer Ask(const Message& message);

    /// Handles the events that wait. When they take long (another box, another run), what is staged is committed.
    void Yield();

    /// The same, at most every 50 ms.
    void YieldWhenDue();

    [[nodiscard]] std::chrono::steady_clock::time_point Now() const;

    /// Grows with every time anything else could happen.
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

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

    /// When the disk was looked at.
    struct Look {
        unsigned upheavals = 0;
        std::chrono::steady_clock::time_point at;
    };
    [[nodiscard]] Look LookNow() const { return {m_upheavals, Now()}; }

    /// True for 100 ms, as long as no box was answered and no other run has worked: what was seen may be believed. A
    /// transfer or a deletion still checks what it is about to touch.
    [[nodiscard]] bool IsFresh(const Look& look) const;

    /// Makes a run's transfer known from its start to its end. Runs end in the reverse order of their starts.
    class Staging final {
      public:
        Staging(Interruptions& interruptions, FileTransfer& transfer) : m_interruptions(interruptions) {
            ++m_interruptions.m_upheavals;
            m_interruptions.m_transfers.push_back(&transfer);
        }
        ~Staging() {
            m_interruptions.m_transfers.pop_back();
            ++m_interruptions.m_upheavals;
        }
        Staging(const Staging&) = delete;
        Staging& operator=(const Staging&) = delete;

      private:
        Interruptions& m_interruptions;
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
    unsigned m_upheavals = 0; ///< boxes answered, runs begun and ended
    int m_yields = 0;         ///< on the stack
};

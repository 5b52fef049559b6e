#include "Interruptions.h"
#include "Clock.h"
#include "EventPump.h"
#include "FileSystem.h"
#include "Prompter.h"

namespace {
// Long enough to cost nothing, short enough for a window that never looks frozen.
constexpr std::chrono::milliseconds yieldInterval{50};
// Nobody minds a log that is ahead of the disk by so much.
constexpr std::chrono::milliseconds longYield{500};
// A file that is always being written to must still be seen as it is when its copy begins.
constexpr std::chrono::milliseconds looksStayFresh{100};
} // namespace

Interruptions::Interruptions(Prompter& prompter, EventPump& pump, const Clock& clock)
    : m_prompter(prompter), m_pump(pump), m_clock(clock), m_lastYield(clock.MonotonicNow()) {
    m_longYield.setSingleShot(true);
    m_longYield.setInterval(longYield);
    QObject::connect(&m_longYield, &QTimer::timeout, &m_longYield, [this] { commitAll(); });
}

/// Committing lets events run, and those may start and end further runs: walked by index against the present count.
void Interruptions::commitAll() {
    std::size_t next = 0;
    while (next < m_transfers.size())
        m_transfers[next++]->Commit();
}

std::chrono::steady_clock::time_point Interruptions::Now() const {
    return m_clock.MonotonicNow();
}

bool Interruptions::IsFresh(const Look& look) const {
    return look.upheavals == m_upheavals && Now() - look.at <= looksStayFresh;
}

MessageAnswer Interruptions::Ask(const Message& message) {
    commitAll();
    const MessageAnswer answer = m_prompter.Ask(message);
    ++m_count;
    ++m_upheavals;
    m_lastYield = m_clock.MonotonicNow();
    return answer;
}

void Interruptions::Yield() {
    ++m_yields;
    m_longYield.start();
    m_pump.Yield();
    if (--m_yields == 0)
        m_longYield.stop();
    else
        m_longYield.start(); // for the yield that this one lies in
    ++m_count;
    m_lastYield = m_clock.MonotonicNow();
}

void Interruptions::YieldWhenDue() {
    if (m_clock.MonotonicNow() - m_lastYield >= yieldInterval)
        Yield();
}

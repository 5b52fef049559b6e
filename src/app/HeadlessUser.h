// Stands in for the user where there is no window: a log instead of the screen, safe answers instead of message boxes,
// a keyboard on which no key is ever held. A line that cannot be written is lost.
#pragma once

#include "KeyState.h"
#include "Prompter.h"
#include <QString>
#include <functional>

class StringTable;

/// Lines for the service manager's journal or a terminal.
class HeadlessLog final {
  public:
    /// Priorities of the journal, as in syslog(3).
    enum class Priority { Error = 3, Warning = 4, Notice = 5, Information = 6 };

    /// Takes one line with its priority.
    using Writer = std::function<void(int priority, const QString& line)>;
    explicit HeadlessLog(Writer writer);

    /// Writes one line: line breaks become blanks, control characters do not reach the terminal.
    void Line(Priority priority, const QString& text);

    /// The notice of possible data loss, and how to accept it.
    void NoticeNotAccepted(const StringTable& texts);

  private:
    Writer m_writer;
};

/// Turns each box into one log line and gives the safe answer.
class HeadlessPrompter final : public Prompter {
  public:
    explicit HeadlessPrompter(HeadlessLog& log) : m_log(log) {}

    MessageAnswer Ask(const Message& message) override;

  private:
    HeadlessLog& m_log;
};

class NoKeys final : public KeyState {
  public:
    [[nodiscard]] bool IsF8Down() const override { return false; }
};

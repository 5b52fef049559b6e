// Lines for whoever started a program without a window: the service manager's journal or a terminal. Owns nothing but
// the way of writing; a line that cannot be written is lost.
#pragma once

#include <QString>
#include <iosfwd>

class StringTable;

class HeadlessLog final {
  public:
    /// Priorities of the journal, as in syslog(3).
    enum class Priority { Error = 3, Warning = 4, Notice = 5, Information = 6 };

    /// `journal`: lines begin with their priority in the form "<5>", as sd-daemon(3) describes.
    HeadlessLog(std::ostream& stream, bool journal);

    /// A log on standard error, for the journal when JOURNAL_STREAM says that it reads it.
    [[nodiscard]] static HeadlessLog OnStandardError();

    /// One message, one line: line breaks become blanks. Control characters do not reach the terminal.
    void Line(Priority priority, const QString& text);

    /// The notice of possible data loss, and how to accept it.
    void NoticeNotAccepted(const StringTable& texts);

  private:
    std::ostream& m_stream;
    bool m_journal;
};

// Texts that others have written (file names, replies of servers) made harmless where people read them: no control
// character reaches a terminal, none reverses or hides what stands beside it. Free functions, no state, no failure.
#pragma once

#include <QString>
#include <system_error>

namespace modForeignText {

/// For a log, a list or the terminal: line breaks become blanks; control characters, line separators and the marks that
/// reverse the direction of text become U+FFFD.
[[nodiscard]] QString OneLine(QString text);

/// For a text of several lines: line breaks ("\n", "\r\n" too) and tabs stay.
[[nodiscard]] QString Lines(QString text);

/// What a server says: one line without superfluous blanks, of at most 200 characters.
[[nodiscard]] QString FromServer(const QString& text);

/// The system's words for an error, in the language of the process.
[[nodiscard]] QString OfError(std::error_code error);

} // namespace modForeignText

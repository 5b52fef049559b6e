// Makes texts from outside (file names, replies of servers) harmless to display: no control character reaches a
// terminal, none reverses or hides the text beside it.
#pragma once

#include <QString>
#include <system_error>

namespace modForeignText {

/// For a log, a list or the terminal: line breaks become blanks; control characters, line separators and the marks that
/// reverse the direction of text become U+FFFD.
[[nodiscard]] QString OneLine(QString text);

/// For a text of several lines: line breaks (also "\r\n") and tabs stay.
[[nodiscard]] QString Lines(QString text);

/// A server's reply as one line without superfluous blanks, cut at 200 characters.
[[nodiscard]] QString FromServer(const QString& text);

/// The system's words for an error, in the language of the process.
[[nodiscard]] QString OfError(std::error_code error);

} // namespace modForeignText

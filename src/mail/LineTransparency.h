// The last thing that happens to whatever goes out after DATA (RFC 5321, 4.5.2): no text can end the mail or break a
// line's length. Keeps the state of the line between the chunks it is given; it cannot fail.
#pragma once

#include <QByteArray>

class LineTransparency final {
  public:
    /// Lone CR and lone LF become CR LF, a "." that begins a line is doubled, and lines end after 998 bytes at the
    /// latest. The result is the same wherever the text was cut into chunks.
    [[nodiscard]] QByteArray Pass(const QByteArray& chunk);

  private:
    void endLine(QByteArray& out);

    qsizetype m_column = 0; ///< bytes of the present line, a doubled "." counted once
    bool m_afterCr = false; ///< the CR LF of a CR has gone out; an LF that follows belongs to it
};

#include "LineTransparency.h"

void LineTransparency::endLine(QByteArray& out) {
    out.append("\r\n");
    m_column = 0;
}

QByteArray LineTransparency::Pass(const QByteArray& chunk) {
    constexpr qsizetype longestLine = 998;
    QByteArray out;
    out.reserve(chunk.size() + chunk.size() / 16);
    for (const char letter : chunk) {
        const bool closesCr = m_afterCr && letter == '\n';
        m_afterCr = letter == '\r';
        if (closesCr)
            continue;
        if (letter == '\r' || letter == '\n') {
            endLine(out);
            continue;
        }
        if (m_column == longestLine)
            endLine(out);
        if (m_column == 0 && letter == '.')
            out.append('.');
        out.append(letter);
        ++m_column;
    }
    return out;
}

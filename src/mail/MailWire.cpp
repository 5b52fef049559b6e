#include "MailWire.h"

namespace {

/// A POP3 reply starts with a sign and has one line; its fourth character is part of the text.
bool isFinal(const QByteArray& line) {
    return line.startsWith('+') || line.startsWith('-') || line.size() < 4 || line.at(3) != '-';
}

} // namespace

void ReplyReader::Feed(const QByteArray& bytes) {
    if (!m_overrun)
        m_bytes += bytes;
}

std::optional<ServerReply> ReplyReader::Next() {
    while (!m_overrun) {
        const qsizetype end = m_bytes.indexOf('\n');
        m_overrun = (end < 0 ? m_bytes.size() : end) > LongestLine || m_reply.size() > LongestReply;
        if (m_overrun || end < 0)
            return std::nullopt;
        QByteArray line = m_bytes.left(end);
        m_bytes.remove(0, end + 1);
        if (line.endsWith('\r'))
            line.chop(1);
        if (!m_reply.isEmpty())
            m_reply += "\r\n";
        m_reply += line;
        if (!isFinal(line))
            continue;
        ServerReply reply{line.left(3).toUpper(), m_reply};
        m_reply.clear();
        return reply;
    }
    return std::nullopt;
}

void ReplyReader::Clear() {
    *this = {};
}

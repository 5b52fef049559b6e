#include "modUuEncode.h"

#include <algorithm>

namespace {

/// Value 0 is a backquote: a blank at the end of a line gets lost on its way.
char digit(unsigned value) {
    constexpr unsigned firstDigit = 32;
    constexpr unsigned sixBits = 0x3F;
    return (value & sixBits) == 0 ? '`' : static_cast<char>(firstDigit + (value & sixBits));
}

void appendGroup(QByteArray& line, const QByteArray& bytes, qsizetype at) {
    const auto byteAt = [&bytes](qsizetype index) {
        return index < bytes.size() ? static_cast<unsigned>(static_cast<unsigned char>(bytes[index])) : 0U;
    };
    const unsigned group = byteAt(at) << 16 | byteAt(at + 1) << 8 | byteAt(at + 2);
    for (const unsigned shift : {18U, 12U, 6U, 0U})
        line.append(digit(group >> shift));
}

} // namespace

QByteArray modUuEncode::Encode(const QByteArray& bytes) {
    QByteArray lines;
    for (qsizetype start = 0; start < bytes.size(); start += bytesPerLine) {
        const qsizetype length = std::min(bytesPerLine, bytes.size() - start);
        lines.append(digit(static_cast<unsigned>(length)));
        for (qsizetype at = start; at < start + length; at += 3)
            appendGroup(lines, bytes, at);
        lines.append("\r\n");
    }
    return lines;
}

QByteArray modUuEncode::End() {
    return QByteArrayLiteral("`\r\nend");
}

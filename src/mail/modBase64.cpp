#include "modBase64.h"

#include <optional>

namespace {

constexpr unsigned bitsPerDigit = 6;
constexpr unsigned bitsPerByte = 8;

std::optional<unsigned> digit(char letter) {
    if (letter >= 'A' && letter <= 'Z')
        return static_cast<unsigned>(letter - 'A');
    if (letter >= 'a' && letter <= 'z')
        return static_cast<unsigned>(letter - 'a') + 26;
    if (letter >= '0' && letter <= '9')
        return static_cast<unsigned>(letter - '0') + 52;
    if (letter == '+')
        return 62;
    if (letter == '/')
        return 63;
    return std::nullopt;
}

} // namespace

QByteArray modBase64::Encode(const QByteArray& bytes) {
    constexpr qsizetype lineLength = bytesPerLine / 3 * 4;
    const QByteArray code = bytes.toBase64();
    QByteArray lines;
    lines.reserve(code.size() + code.size() / lineLength * 2);
    for (qsizetype at = 0; at < code.size(); at += lineLength) {
        if (at > 0)
            lines.append("\r\n");
        lines.append(code.mid(at, lineLength));
    }
    return lines;
}

QByteArray modBase64::DecodeBase64String(const QByteArray& text) {
    QByteArray bytes;
    unsigned collected = 0;
    unsigned bits = 0;
    for (const char letter : text) {
        if (letter == '=')
            break;
        const std::optional<unsigned> value = digit(letter);
        if (!value)
            continue;
        collected = (collected << bitsPerDigit | *value) & 0xFFFF;
        bits += bitsPerDigit;
        if (bits >= bitsPerByte) {
            bits -= bitsPerByte;
            bytes.append(static_cast<char>(static_cast<unsigned char>(collected >> bits & 0xFF)));
        }
    }
    return bytes;
}

#include "modMailEncoding.h"

#include <QUrl>
#include <algorithm>
#include <optional>

namespace {

constexpr char lastPlain = 126;
constexpr char16_t lastLatin1 = 0xFF;
constexpr qsizetype longestPlainLine = 900;
constexpr qsizetype longestQText = 54;
constexpr qsizetype bytesPerBWord = 42;

bool isControl(char letter) {
    return letter >= 0 && letter < ' ';
}

bool isAboveAscii(char letter) {
    return letter < 0 || letter > lastPlain;
}

QByteArray withoutLineEnds(QByteArray bytes) {
    for (char& letter : bytes)
        if (letter == '\r' || letter == '\n' || letter == '\0')
            letter = ' ';
    return bytes;
}

/// In a header, TAB is white space like a blank. No other control character is allowed there.
QByteArray withoutControls(QByteArray bytes) {
    for (char& letter : bytes)
        if (isControl(letter) && letter != '\t')
            letter = ' ';
    return bytes;
}

QByteArray inQuotes(const QByteArray& bytes) {
    QByteArray text("\"");
    for (const char letter : bytes) {
        if (letter == '"' || letter == '\\')
            text.append('\\');
        text.append(letter);
    }
    return text.append('"');
}

/// Breaks before a blank that is followed by text: a continuation line of blanks alone ends the header for some
/// readers. nullopt when there is no such blank.
std::optional<QByteArray> folded(QByteArray rest) {
    QByteArray lines;
    while (rest.size() > longestPlainLine) {
        qsizetype at = longestPlainLine;
        while (at > 1 && (rest[at] != ' ' || at + 1 == rest.size() || rest[at + 1] == ' ' || rest[at + 1] == '\t'))
            --at;
        if (at == 1)
            return std::nullopt;
        lines.append(rest.left(at)).append("\r\n");
        rest.remove(0, at);
    }
    return lines.append(rest);
}

bool isKeptByQ(char letter) {
    return letter > ' ' && letter <= lastPlain && letter != '=' && letter != '?' && letter != '_';
}

QByteArray qCode(char letter) {
    if (letter == ' ')
        return "_";
    if (isKeptByQ(letter))
        return QByteArray(1, letter);
    return QByteArray("=").append(QByteArray(1, letter).toHex().toUpper());
}

void appendWord(QByteArray& words, char form, const QByteArray& code) {
    if (!words.isEmpty())
        words.append("\r\n\t");
    words.append("=?ISO-8859-1?").append(form).append('?').append(code).append("?=");
}

QByteArray qForm(const QByteArray& bytes) {
    QByteArray words;
    QByteArray word;
    for (const char letter : bytes) {
        const QByteArray code = qCode(letter);
        if (word.size() + code.size() > longestQText) {
            appendWord(words, 'Q', word);
            word.clear();
        }
        word.append(code);
    }
    appendWord(words, 'Q', word);
    return words;
}

QByteArray bForm(const QByteArray& bytes) {
    QByteArray words;
    for (qsizetype at = 0; at < bytes.size(); at += bytesPerBWord)
        appendWord(words, 'B', bytes.mid(at, bytesPerBWord).toBase64());
    return words;
}

/// Some readers split addresses before they decode words; they would act on these.
bool holdsDelimiter(const QByteArray& bytes) {
    return std::any_of(bytes.begin(), bytes.end(), [](char letter) {
        return letter != '\0' && QByteArrayLiteral("()<>[]:;@\\,\"").contains(letter);
    });
}

/// Value 0 is a backquote: servers may strip a blank from the end of a line.
char uuDigit(unsigned value) {
    constexpr unsigned firstDigit = 32;
    constexpr unsigned sixBits = 0x3F;
    return (value & sixBits) == 0 ? '`' : static_cast<char>(firstDigit + (value & sixBits));
}

void appendUuGroup(QByteArray& line, const QByteArray& bytes, qsizetype at) {
    const auto byteAt = [&bytes](qsizetype index) {
        return index < bytes.size() ? static_cast<unsigned>(static_cast<unsigned char>(bytes[index])) : 0U;
    };
    const unsigned group = byteAt(at) << 16 | byteAt(at + 1) << 8 | byteAt(at + 2);
    for (const unsigned shift : {18U, 12U, 6U, 0U})
        line.append(uuDigit(group >> shift));
}

} // namespace

QByteArray modMailEncoding::Latin1(QStringView text) {
    QByteArray bytes;
    bytes.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar letter = text[i];
        bytes.append(letter.unicode() <= lastLatin1 ? letter.toLatin1() : '?');
        if (letter.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
    }
    return bytes;
}

bool modMailEncoding::NeedsEightBits(QStringView text) {
    return std::any_of(text.begin(), text.end(), [](QChar letter) {
        return letter.unicode() > char16_t{lastPlain} && letter.unicode() <= lastLatin1;
    });
}

QByteArray modMailEncoding::HeaderWord(const QString& text, bool quoted) {
    const QByteArray bytes = withoutLineEnds(Latin1(text));
    if (std::none_of(bytes.begin(), bytes.end(), isAboveAscii)) {
        const QByteArray plain = withoutControls(bytes);
        if (const std::optional<QByteArray> lines = folded(quoted ? inQuotes(plain) : plain))
            return *lines;
    }
    QByteArray inB = bForm(bytes);
    if (quoted && holdsDelimiter(bytes))
        return inB;
    QByteArray inQ = qForm(bytes);
    return inQ.size() < inB.size() ? inQ : inB;
}

QByteArray modMailEncoding::Ascii(const QString& text) {
    QByteArray bytes = withoutControls(Latin1(text));
    std::replace_if(bytes.begin(), bytes.end(), isAboveAscii, '?');
    return bytes;
}

QByteArray modMailEncoding::QuotedAscii(const QString& text) {
    return inQuotes(Ascii(text));
}

QByteArray modMailEncoding::Base64Lines(const QByteArray& bytes) {
    constexpr qsizetype lineLength = Base64LineBytes / 3 * 4;
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

QByteArray modMailEncoding::DecodeBase64String(const QByteArray& text) {
    const qsizetype end = text.indexOf('=');
    return QByteArray::fromBase64(end < 0 ? text : text.left(end));
}

QByteArray modMailEncoding::UuLines(const QByteArray& bytes) {
    QByteArray lines;
    for (qsizetype start = 0; start < bytes.size(); start += UuLineBytes) {
        const qsizetype length = std::min(UuLineBytes, bytes.size() - start);
        lines.append(uuDigit(static_cast<unsigned>(length)));
        for (qsizetype at = start; at < start + length; at += 3)
            appendUuGroup(lines, bytes, at);
        lines.append("\r\n");
    }
    return lines;
}

QByteArray modMailEncoding::UuEnd() {
    return QByteArrayLiteral("`\r\nend");
}

QByteArray modMailEncoding::DomainToAscii(const QString& domain) {
    const bool plain = std::all_of(domain.begin(), domain.end(), [](QChar c) { return c < QChar(0x80); });
    const QByteArray ascii = plain ? QByteArray() : QUrl::toAce(domain);
    return ascii.isEmpty() ? domain.toUtf8() : ascii;
}

QByteArray modMailEncoding::AddressToAscii(const QString& address) {
    const qsizetype domainAt = address.indexOf(u'@') + 1;
    return domainAt == 0 ? address.toUtf8() : address.left(domainAt).toUtf8() + DomainToAscii(address.mid(domainAt));
}

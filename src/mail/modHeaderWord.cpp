#include "modHeaderWord.h"
#include "modLatin1.h"

#include <algorithm>
#include <optional>

namespace {

constexpr char lastPlain = 126;
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

/// A TAB is white space like any other in a header; the rest of the control characters has no business there.
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

/// Lines are broken before a blank that another character follows, since a continuation of blanks alone is no good.
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

/// Delimiters that readers which split addresses before they decode words would act on.
bool holdsDelimiter(const QByteArray& bytes) {
    return std::any_of(bytes.begin(), bytes.end(), [](char letter) {
        return letter != '\0' && QByteArrayLiteral("()<>[]:;@\\,\"").contains(letter);
    });
}

} // namespace

QByteArray modHeaderWord::Encode(const QString& text, bool quoted) {
    const QByteArray bytes = withoutLineEnds(modLatin1::FromText(text));
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

QByteArray modHeaderWord::Ascii(const QString& text) {
    QByteArray bytes = withoutControls(modLatin1::FromText(text));
    std::replace_if(bytes.begin(), bytes.end(), isAboveAscii, '?');
    return bytes;
}

QByteArray modHeaderWord::QuotedAscii(const QString& text) {
    return inQuotes(Ascii(text));
}

// Any text in a header: it stays within its line, is plain ASCII, and reads back as what was written.
#include "modHeaderWord.h"
#include "modLatin1.h"

#include <QList>
#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

QByteArray replaced(QByteArray text, bool everyControl) {
    for (char& letter : text)
        if (letter == '\r' || letter == '\n' || letter == '\0' ||
            (everyControl && letter > 0 && letter < ' ' && letter != '\t'))
            letter = ' ';
    return text;
}

QByteArray unquoted(const QByteArray& text) {
    require(text.size() >= 2 && text.startsWith('"') && text.endsWith('"'));
    QByteArray bytes;
    for (qsizetype i = 1; i + 1 < text.size(); ++i) {
        require(text[i] != '"');
        if (text[i] == '\\')
            require(++i + 1 < text.size());
        bytes.append(text[i]);
    }
    return bytes;
}

QByteArray decodedQ(const QByteArray& code) {
    QByteArray bytes;
    for (qsizetype i = 0; i < code.size(); ++i) {
        require(code[i] > ' ' && code[i] != '?');
        if (code[i] != '=') {
            bytes.append(code[i] == '_' ? ' ' : code[i]);
            continue;
        }
        const QByteArray digits = code.mid(i + 1, 2);
        require(digits.size() == 2 && QByteArray::fromHex(digits).toHex().toUpper() == digits);
        bytes.append(QByteArray::fromHex(digits));
        i += 2;
    }
    return bytes;
}

QByteArray decodedWords(const QByteArray& words) {
    const QByteArray begin("=?ISO-8859-1?");
    QByteArray bytes;
    for (QByteArray word : words.split('\n')) {
        if (word.startsWith('\t'))
            word.remove(0, 1);
        if (word.endsWith('\r'))
            word.chop(1);
        require(word.size() <= 75 && word.startsWith(begin) && word.endsWith("?="));
        const QByteArray code = word.mid(begin.size() + 2, word.size() - begin.size() - 4);
        const QByteArray form = word.mid(begin.size(), 2);
        require(form == "Q?" || form == "B?");
        require(form == "B?" || code.size() <= 54);
        bytes += form == "Q?" ? decodedQ(code) : QByteArray::fromBase64(code, QByteArray::AbortOnBase64DecodingErrors);
    }
    return bytes;
}

void checkLines(const QByteArray& text) {
    const QList<QByteArray> lines = text.split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        require(lines[i].size() <= 950);
        require(i == 0 || lines[i].startsWith(' ') || lines[i].startsWith('\t'));
        require(lines[i].count('\r') == (i + 1 < lines.size() ? 1 : 0));
        require(i + 1 == lines.size() || lines[i].endsWith('\r'));
    }
    require(std::all_of(text.begin(), text.end(), [](char letter) {
        return (letter >= ' ' && letter <= '~') || letter == '\t' || letter == '\r' || letter == '\n';
    }));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const bool quoted = (data[0] & 1U) != 0;
    const QByteArray input(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    const QString text = (data[0] & 2U) != 0 ? QString::fromUtf8(input) : QString::fromLatin1(input);
    const QByteArray bytes = modLatin1::FromText(text);
    const bool isAscii =
        std::all_of(bytes.begin(), bytes.end(), [](char letter) { return letter >= 0 && letter < 127; });

    const QByteArray result = modHeaderWord::Encode(text, quoted);
    checkLines(result);
    const QByteArray unfolded = QByteArray(result).replace("\r\n", "");
    const QByteArray plain = replaced(bytes, true);
    if (isAscii && unfolded == (quoted ? modHeaderWord::QuotedAscii(text) : plain)) {
        require(!quoted || unquoted(unfolded) == plain);
        return 0;
    }
    require(!isAscii || bytes.size() > 450);
    require(decodedWords(result) == replaced(bytes, false));
    return 0;
}

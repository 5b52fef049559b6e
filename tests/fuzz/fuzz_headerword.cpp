// Any text in a header: it stays within its line, is plain ASCII, and reads back as what was written.
#include "Require.h"
#include "modMailEncoding.h"

#include <QList>
#include <QRegularExpression>
#include <algorithm>
#include <cstdint>

namespace {

QByteArray replaced(QByteArray text, bool everyControl) {
    for (char& letter : text)
        if (letter == '\r' || letter == '\n' || letter == '\0' ||
            (everyControl && letter > 0 && letter < ' ' && letter != '\t'))
            letter = ' ';
    return text;
}

QByteArray unquoted(const QByteArray& text) {
    Require(text.size() >= 2 && text.startsWith('"') && text.endsWith('"'));
    QByteArray bytes;
    for (qsizetype i = 1; i + 1 < text.size(); ++i) {
        Require(text[i] != '"');
        if (text[i] == '\\')
            Require(++i + 1 < text.size());
        bytes.append(text[i]);
    }
    return bytes;
}

bool matches(const QRegularExpression& whole, const QByteArray& text) {
    return whole.match(QString::fromLatin1(text)).hasMatch();
}

QByteArray decodedQ(QByteArray code) {
    static const QRegularExpression letters(QStringLiteral("\\A([!-<>@-~]|=[0-9A-F]{2})*\\z"));
    Require(matches(letters, code));
    return QByteArray::fromPercentEncoding(code.replace('_', ' '), '=');
}

QByteArray decodedWords(const QByteArray& words) {
    const QByteArray begin("=?ISO-8859-1?");
    QByteArray bytes;
    for (QByteArray word : words.split('\n')) {
        if (word.startsWith('\t'))
            word.remove(0, 1);
        if (word.endsWith('\r'))
            word.chop(1);
        Require(word.size() <= 75 && word.startsWith(begin) && word.endsWith("?="));
        const QByteArray code = word.mid(begin.size() + 2, word.size() - begin.size() - 4);
        const QByteArray form = word.mid(begin.size(), 2);
        Require(form == "Q?" || form == "B?");
        Require(form == "B?" || code.size() <= 54);
        bytes += form == "Q?" ? decodedQ(code) : QByteArray::fromBase64(code, QByteArray::AbortOnBase64DecodingErrors);
    }
    return bytes;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const bool quoted = (data[0] & 1U) != 0;
    const QByteArray input(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    const QString text = (data[0] & 2U) != 0 ? QString::fromUtf8(input) : QString::fromLatin1(input);
    const QByteArray bytes = modMailEncoding::Latin1(text);
    const bool isAscii =
        std::all_of(bytes.begin(), bytes.end(), [](char letter) { return letter >= 0 && letter < 127; });

    const QByteArray result = modMailEncoding::HeaderWord(text, quoted);
    static const QRegularExpression lines(QStringLiteral("\\A[\\t -~]{0,950}(\\r\\n[\\t ][\\t -~]{0,949})*+\\z"));
    Require(matches(lines, result));
    const QByteArray unfolded = QByteArray(result).replace("\r\n", "");
    const QByteArray plain = replaced(bytes, true);
    if (isAscii && unfolded == (quoted ? modMailEncoding::QuotedAscii(text) : plain)) {
        Require(!quoted || unquoted(unfolded) == plain);
        return 0;
    }
    Require(!isAscii || bytes.size() > 450);
    Require(decodedWords(result) == replaced(bytes, false));
    return 0;
}

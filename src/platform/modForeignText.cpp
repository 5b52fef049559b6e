#include "modForeignText.h"

#include <algorithm>

namespace {

constexpr char16_t replacementCharacter = 0xFFFD;

/// The marks for left-to-right and right-to-left (U+200E, U+200F) are harmless: like letters they act on their
/// neighbours only, and names in Hebrew or Arabic need them.
constexpr bool isHarmless(char16_t unit) {
    if (unit < 0xA0)
        return unit >= 0x20 && unit < 0x7F;
    const bool separatesOrReverses = (unit >= 0x2028 && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
    return !separatesOrReverses;
}

char16_t inOneLine(char16_t unit) {
    return unit == u'\r' || unit == u'\n' ? u' ' : replacementCharacter;
}

char16_t inLines(char16_t unit) {
    return unit == u'\n' || unit == u'\t' ? unit : inOneLine(unit);
}

/// Without a branch, so that the compiler vectorises it: nearly every text needs no more than this.
bool isPrintableAscii(QStringView text) {
    unsigned others = 0;
    for (const QChar c : text)
        others |= static_cast<unsigned>(static_cast<char16_t>(c.unicode() - 0x20) > 0x7E - 0x20);
    return others == 0;
}

/// Returns a harmless text without a copy.
QString cleaned(QString text, char16_t (*replacement)(char16_t)) {
    if (isPrintableAscii(text))
        return text;
    const auto bad = std::find_if_not(text.cbegin(), text.cend(), [](QChar c) { return isHarmless(c.unicode()); });
    for (qsizetype at = bad - text.cbegin(); at < text.size(); ++at) {
        const char16_t unit = text.at(at).unicode();
        if (!isHarmless(unit))
            text[at] = QChar(replacement(unit));
    }
    return text;
}

} // namespace

QString modForeignText::OneLine(QString text) {
    return cleaned(std::move(text), inOneLine);
}

QString modForeignText::Lines(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return cleaned(std::move(text), inLines);
}

QString modForeignText::FromServer(const QString& text) {
    constexpr qsizetype mostCharacters = 200;
    QString line = OneLine(text).simplified().left(mostCharacters);
    if (!line.isEmpty() && line.back().isHighSurrogate())
        line.chop(1);
    return line;
}

QString modForeignText::OfError(std::error_code error) {
    return QString::fromLocal8Bit(error.message().c_str());
}

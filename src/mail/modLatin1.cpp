#include "modLatin1.h"

#include <algorithm>

namespace {
constexpr char16_t lastLatin1 = 0xFF;
constexpr char16_t lastPlain = 126;
} // namespace

QByteArray modLatin1::FromText(QStringView text) {
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

bool modLatin1::NeedsEightBits(QStringView text) {
    return std::any_of(text.begin(), text.end(),
                       [](QChar letter) { return letter.unicode() > lastPlain && letter.unicode() <= lastLatin1; });
}

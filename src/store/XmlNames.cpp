#include "XmlNames.h"
#include "XmlParser.h"
#include "XmlText.h"
#include "XmlWriter.h"

#include <algorithm>
#include <array>

namespace {

constexpr qsizetype mostUnits = 1000;

struct Range {
    char32_t first;
    char32_t last;
};

// Beyond ASCII.
constexpr std::array startRanges = {
    Range{0xC0, 0xD6},     Range{0xD8, 0xF6},     Range{0xF8, 0x2FF},    Range{0x370, 0x37D},
    Range{0x37F, 0x1FFF},  Range{0x200C, 0x200D}, Range{0x2070, 0x218F}, Range{0x2C00, 0x2FEF},
    Range{0x3001, 0xD7FF}, Range{0xF900, 0xFDCF}, Range{0xFDF0, 0xFFFD}, Range{0x10000, 0xEFFFF},
};
constexpr std::array furtherRanges = {
    Range{0xB7, 0xB7},
    Range{0x300, 0x36F},
    Range{0x203F, 0x2040},
};

bool isIn(const auto& ranges, char32_t character) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [character](const Range& r) { return character >= r.first && character <= r.last; });
}

/// Nearly every name is plain ASCII, and every read of a field asks twice.
bool isAsciiNameUnit(char16_t c, bool isFirst) {
    const char16_t letter = c | 0x20;
    return (letter >= 'a' && letter <= 'z' && c < 0x80) || c == '_' ||
           (!isFirst && ((c >= '0' && c <= '9') || c == '-' || c == '.'));
}

bool isAscii(QStringView text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

bool XmlNames::IsNcName(QStringView name) {
    for (qsizetype at = 0; at < name.size(); ++at) {
        char32_t character = name[at].unicode();
        const bool isFirst = at == 0;
        if (character < 0x80) {
            if (!isAsciiNameUnit(name[at].unicode(), isFirst))
                return false;
            continue;
        }
        if (QChar::isHighSurrogate(character) && at + 1 < name.size() && name[at + 1].isLowSurrogate())
            character = QChar::surrogateToUcs4(name[at], name[at + 1]), ++at;
        if (!isIn(startRanges, character) && (isFirst || !isIn(furtherRanges, character)))
            return false;
    }
    return !name.isEmpty();
}

bool XmlNames::IsUsable(const QString& name, const xmlDoc& document) {
    if (name.size() > mostUnits || !IsNcName(name))
        return false;
    if (isAscii(name))
        return true;
    // The encodings are many: a trial document tells whether this one can hold the name.
    const XmlDocument trial(xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0")));
    if (!trial)
        return false;
    trial->standalone = document.standalone;
    trial->encoding = xmlStrdup(document.encoding);
    xmlDocSetRootElement(trial.get(), xmlNewDocNode(trial.get(), nullptr, XmlText::ToXml(name.toUtf8()), nullptr));
    const auto bytes = XmlWriter::Bytes(*trial);
    const XmlDocument again = bytes ? XmlParser::Parse(*bytes) : nullptr;
    return again && XmlText::FromXml(xmlDocGetRootElement(again.get())->name) == name;
}

#include "XmlText.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// Beyond ASCII, as are all ranges here.
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

/// The fast path: nearly every name is ASCII, and each read of a field checks twice.
bool isAsciiNameUnit(char16_t c, bool isFirst) {
    const char16_t letter = c | 0x20;
    return (letter >= 'a' && letter <= 'z' && c < 0x80) || c == '_' ||
           (!isFirst && ((c >= '0' && c <= '9') || c == '-' || c == '.'));
}

void gather(const xmlNode* node, QByteArray& utf8) {
    if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) {
        if (node->content != nullptr)
            utf8.append(reinterpret_cast<const char*>(node->content));
        return;
    }
    if (node->type != XML_ELEMENT_NODE && node->type != XML_ATTRIBUTE_NODE && node->type != XML_DOCUMENT_NODE)
        return;
    for (const xmlNode* child = node->children; child != nullptr; child = child->next)
        gather(child, utf8);
}

} // namespace

QString XmlText::FromUtf8(QByteArrayView utf8) {
    if (!utf8.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(utf8);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(utf8);
}

QString XmlText::FromXml(const xmlChar* text) {
    return text == nullptr ? QString() : FromUtf8(reinterpret_cast<const char*>(text));
}

bool XmlText::IsXmlCharacter(char32_t character) {
    return character == 0x9 || character == 0xA || character == 0xD || (character >= 0x20 && character <= 0xD7FF) ||
           (character >= 0xE000 && character <= 0xFFFD) || (character >= 0x10000 && character <= 0x10FFFF);
}

QString XmlText::Storable(const QString& text) {
    QString kept;
    kept.reserve(text.size());
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar unit = text[at];
        if (unit.isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate())
            kept.append(unit).append(text[++at]);
        else if (IsXmlCharacter(unit.unicode()))
            kept.append(unit);
    }
    return kept;
}

QString XmlText::Of(const xmlNode* node) {
    // Nearly every value is a single text node.
    const xmlNode* only = node->type == XML_ELEMENT_NODE ? node->children : nullptr;
    if (only != nullptr && only->type == XML_TEXT_NODE && only->next == nullptr)
        return FromXml(only->content);
    QByteArray utf8;
    gather(node, utf8);
    return FromUtf8(utf8);
}

bool XmlText::Set(xmlNode* node, const QString& text) {
    const QByteArray utf8 = Storable(text).toUtf8();
    if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) {
        xmlNodeSetContentLen(node, ToXml(utf8), static_cast<int>(utf8.size()));
        return true;
    }
    if (node->type != XML_ELEMENT_NODE && node->type != XML_ATTRIBUTE_NODE)
        return false;
    // libxml2's own setters would parse "&" as the start of an entity.
    XmlLooseNode content(xmlNewDocTextLen(node->doc, ToXml(utf8), static_cast<int>(utf8.size())));
    if (!content)
        return false;
    xmlNode* old = node->children;
    node->children = nullptr;
    node->last = nullptr;
    xmlFreeNodeList(old);
    if (utf8.isEmpty() && node->type == XML_ELEMENT_NODE)
        return true;
    content->parent = node;
    node->children = content.get();
    node->last = content.release();
    return true;
}

bool XmlText::IsNcName(QStringView name) {
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

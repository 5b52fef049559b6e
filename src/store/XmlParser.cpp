#include "XmlParser.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <string_view>

namespace {

using namespace std::string_view_literals;

using ParserContext = std::unique_ptr<xmlParserCtxt, XmlRelease<xmlFreeParserCtxt>>;

/// Parsing time grows with the square of a tag's attributes, and the tags of an activity file have none.
constexpr size_t maxTagBytes = 8 << 10;

constexpr std::array littleEndian16 = {"\xFF\xFE"sv, "<\0?\0"sv, "<\0!\0"sv};
constexpr std::array bigEndian16 = {"\xFE\xFF"sv, "\0<\0?"sv, "\0<\0!"sv};
/// UTF-32 and EBCDIC.
constexpr std::array notScannable = {"\0\0\0<"sv,          "<\0\0\0"sv,      "\0\0<\0"sv,     "\0<\0\0"sv,
                                     "\x4C\x6F\xA7\x94"sv, "\xFF\xFE\0\0"sv, "\0\0\xFE\xFF"sv};

bool startsWithAny(std::string_view bytes, const auto& prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(), [bytes](std::string_view p) { return bytes.starts_with(p); });
}

/// Position after the end mark, or the end of the markup.
size_t skipPast(std::string_view markup, std::string_view mark, size_t from) {
    const size_t found = markup.find(mark, from);
    return found == std::string_view::npos ? markup.size() : found + mark.size();
}

/// Length of the tag at the start of `tag`; ">" in quotes does not close it. Above the limit when it is not closed by
/// then.
size_t tagLength(std::string_view tag) {
    char quote = '\0';
    for (size_t at = 1; at < tag.size() && at <= maxTagBytes; ++at) {
        const char c = tag[at];
        if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '>')
            return at + 1;
    }
    return maxTagBytes + 1;
}

/// Malformed markup passes: the parser refuses it.
bool areTagsShort(std::string_view markup) {
    for (size_t at = markup.find('<'); at < markup.size(); at = markup.find('<', at)) {
        const std::string_view rest = markup.substr(at);
        if (rest.starts_with("<!--"))
            at = skipPast(markup, "-->", at + 4);
        else if (rest.starts_with("<![CDATA["))
            at = skipPast(markup, "]]>", at + 9);
        else if (rest.starts_with("<?"))
            at = skipPast(markup, "?>", at + 2);
        else if (rest.starts_with("<!"))
            return true; // a DOCTYPE: the parser stops here
        else if (const size_t length = tagLength(rest); length <= maxTagBytes)
            at += length;
        else
            return rest.size() <= maxTagBytes; // only truncated, which the parser reports
    }
    return true;
}

/// False for an overlong tag, and for an encoding that cannot be scanned.
bool isCheapToParse(const QByteArray& markup) {
    const std::string_view bytes(markup.constData(), static_cast<size_t>(markup.size()));
    if (startsWithAny(bytes, notScannable))
        return false;
    const bool isLittle = startsWithAny(bytes, littleEndian16);
    if (!isLittle && !startsWithAny(bytes, bigEndian16))
        return areTagsShort(bytes);
    QStringDecoder decoder(isLittle ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
    const QString text = decoder(markup);
    const QByteArray utf8 = text.toUtf8();
    return areTagsShort({utf8.constData(), static_cast<size_t>(utf8.size())});
}

/// A stopped parser still returns what it has built so far, so the refusal needs a flag of its own.
void refuseDoctype(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    auto* parser = static_cast<xmlParserCtxt*>(context);
    *static_cast<bool*>(parser->_private) = true;
    xmlStopParser(parser);
}

struct DeclaredText {
    QByteArray bytes;
    QByteArray encoding;
};

/// Converts to UTF-8 and removes the declared encoding, which no longer applies.
DeclaredText withoutEncoding(const QString& text) {
    static const QRegularExpression declaration(QStringLiteral(
        R"re(^\x{FEFF}?(<\?xml\s+version\s*=\s*(?:"[^"]*"|'[^']*'))\s+encoding\s*=\s*(?:"([\w.\-]+)"|'([\w.\-]+)'))re"));
    const QRegularExpressionMatch match = declaration.match(text);
    if (!match.hasMatch())
        return {(text.startsWith(QChar(0xFEFF)) ? text.mid(1) : text).toUtf8(), {}};
    const QString encoding = match.captured(2) + match.captured(3);
    return {(match.captured(1) + text.mid(match.capturedEnd())).toUtf8(), encoding.toLatin1()};
}

} // namespace

XmlQuiet::XmlQuiet()
    : m_handler(xmlStructuredError), m_context(xmlStructuredErrorContext), m_loader(xmlGetExternalEntityLoader()) {
    xmlSetStructuredErrorFunc(nullptr, [](void*, auto*) {});
    xmlSetExternalEntityLoader([](const char*, const char*, xmlParserCtxtPtr) -> xmlParserInputPtr { return nullptr; });
}

XmlQuiet::~XmlQuiet() {
    xmlSetExternalEntityLoader(m_loader);
    xmlSetStructuredErrorFunc(m_context, m_handler);
}

XmlDocument XmlParser::Parse(const QByteArray& bytes) {
    if (bytes.isEmpty() || bytes.size() > MaxBytes || !isCheapToParse(bytes))
        return nullptr;
    const XmlQuiet quiet;
    const ParserContext parser(xmlNewParserCtxt());
    if (!parser)
        return nullptr;
    bool hasDoctype = false;
    parser->_private = &hasDoctype;
    parser->sax->internalSubset = refuseDoctype;
    parser->sax->serror = [](void*, auto*) {};
    XmlDocument document(xmlCtxtReadMemory(parser.get(), bytes.constData(), static_cast<int>(bytes.size()), nullptr,
                                           nullptr, XML_PARSE_NONET));
    if (hasDoctype || !document || xmlDocGetRootElement(document.get()) == nullptr)
        return nullptr;
    return document;
}

XmlDocument XmlParser::ParseText(const QString& text) {
    if (text.contains(QChar(u'\0')))
        return nullptr;
    const DeclaredText declared = withoutEncoding(text);
    XmlDocument document = Parse(declared.bytes);
    if (document && !declared.encoding.isEmpty()) {
        xmlFree(const_cast<xmlChar*>(document->encoding));
        document->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>(declared.encoding.constData()));
    }
    return document;
}

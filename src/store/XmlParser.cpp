#include "XmlParser.h"
#include "XmlEncodings.h"
#include "XmlFold.h"
#include "XmlMarkup.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <libxml/SAX2.h>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using namespace std::string_view_literals;

using ParserContext = std::unique_ptr<xmlParserCtxt, XmlRelease<xmlFreeParserCtxt>>;

/// Parsing time grows with the square of a tag's attributes, and the tags of an activity file have none.
constexpr size_t maxTagBytes = 8 << 10;

/// Of UTF-16: estimating it takes two copies.
constexpr qsizetype maxBytes16 = 16 << 20;

constexpr std::array littleEndian16 = {"\xFF\xFE"sv, "<\0?\0"sv, "<\0!\0"sv};
constexpr std::array bigEndian16 = {"\xFE\xFF"sv, "\0<\0?"sv, "\0<\0!"sv};
/// UTF-32 and EBCDIC.
constexpr std::array notScannable = {"\0\0\0<"sv,          "<\0\0\0"sv,      "\0\0<\0"sv,     "\0<\0\0"sv,
                                     "\x4C\x6F\xA7\x94"sv, "\xFF\xFE\0\0"sv, "\0\0\xFE\xFF"sv};

bool startsWithAny(std::string_view bytes, const auto& prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(), [bytes](std::string_view p) { return bytes.starts_with(p); });
}

/// What a document will take in memory, estimated from its markup: the bytes of the file, the folded activities and the
/// list's rows, and all nodes of the activity that is being folded.
class Estimate final {
  public:
    explicit Estimate(std::string_view markup) : m_markup(markup) {}

    /// False as soon as it is too much. Malformed markup passes: the parser refuses it.
    [[nodiscard]] bool IsAffordable() {
        // Folding writes these as references.
        const auto grown = std::count_if(m_markup.begin(), m_markup.end(), [](char c) {
            return c == '>' || c == '"' || static_cast<signed char>(c) < 0;
        });
        m_kept = 3 * m_markup.size() + 5 * static_cast<size_t>(grown);
        for (size_t at = m_markup.find('<'); at < m_markup.size() && isWithin(); at = m_markup.find('<', at)) {
            const std::string_view rest = m_markup.substr(at);
            if (rest.starts_with("<?"))
                addName(rest.substr(2));
            // An overlong tag is not looked at to its end.
            const std::string_view tag = rest.substr(0, maxTagBytes + 1);
            if (const size_t behind = XmlMarkup::SkipNoTag(m_markup, at); behind != at)
                at = addNode(behind);
            else if (rest.starts_with("<!"))
                return true; // a DOCTYPE: the parser stops here
            else if (const size_t length = XmlMarkup::EndOfTag(tag, 1); length <= maxTagBytes)
                at = addTag(at, length);
            else
                return rest.size() <= maxTagBytes; // only truncated, which the parser reports
        }
        return isWithin();
    }

  private:
    static constexpr size_t MostMemory = 80 << 20;
    /// libxml2's dictionary stops growing; then every name is searched for.
    static constexpr int MostNames = 100'000;
    /// A node of libxml2 with the allocator's share.
    static constexpr size_t NodeBytes = 128;
    /// An activity's nodes, its row and its places in the indexes.
    static constexpr size_t EntryBytes = 1024;

    [[nodiscard]] bool isWithin() const {
        return m_names <= MostNames && m_kept + std::max(m_largestEntry, m_entry) <= MostMemory;
    }

    static bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

    /// Two names that fall on one bit count as one.
    void addName(std::string_view from) {
        const std::string_view name = from.substr(0, from.find_first_of(" \t\r\n/>=?"));
        const size_t bit = std::hash<std::string_view>()(name) % m_seen.size();
        m_names += static_cast<int>(!m_seen[bit]);
        m_seen[bit] = true;
    }

    size_t addNode(size_t end) {
        if (m_depth < 2)
            m_kept += 2 * NodeBytes; // with the blanks behind it
        else
            m_entry += 2 * NodeBytes;
        return end;
    }

    size_t addTag(size_t begin, size_t length) {
        const std::string_view tag = m_markup.substr(begin, length);
        const bool isEnd = tag.starts_with("</");
        if (isEnd && m_depth == 2)
            m_largestEntry = std::max(m_largestEntry, std::exchange(m_entry, 0) + 3 * (begin - m_entryBegin));
        if (isEnd) {
            m_depth -= static_cast<int>(m_depth > 0);
            return begin + length;
        }
        addName(tag.substr(1));
        size_t attributes = 0;
        size_t word = std::string_view::npos; // of a name that is not counted yet
        for (size_t at = 1; at < tag.size(); ++at) {
            if (isBlank(tag[at]))
                word = at + 1;
            if (tag[at] != '=')
                continue;
            ++attributes;
            if (word != std::string_view::npos)
                addName(tag.substr(std::exchange(word, std::string_view::npos)));
        }
        if (m_depth == 1) {
            m_kept += EntryBytes + 2 * NodeBytes * attributes;
            m_entryBegin = begin;
        } else {
            m_entry += 2 * NodeBytes * (1 + attributes);
        }
        m_depth += static_cast<int>(!tag.ends_with("/>"));
        return begin + length;
    }

    std::string_view m_markup;
    std::vector<bool> m_seen = std::vector<bool>(1 << 21);
    int m_names = 0;
    size_t m_kept = 0;
    size_t m_entry = 0; ///< of the activity that is open
    size_t m_entryBegin = 0;
    size_t m_largestEntry = 0;
    int m_depth = 0;
};

std::string_view viewOf(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

bool isCheapToParse(const QByteArray& markup) {
    const bool isLittle = startsWithAny(viewOf(markup), littleEndian16);
    if (!isLittle && !startsWithAny(viewOf(markup), bigEndian16))
        return Estimate(viewOf(markup)).IsAffordable();
    if (markup.size() > maxBytes16)
        return false;
    QStringDecoder decoder(isLittle ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
    const QString text = decoder(markup);
    return Estimate(viewOf(text.toUtf8())).IsAffordable();
}

/// libxml2's own limit for the text of one node, which it keeps only while it builds a tree.
constexpr int maxTextBytes = 10'000'000;

/// What one parse needs beside the parser's own state.
struct Pass {
    bool isRefused = false; ///< a stopped parser still returns what it has built so far
    bool isEncodingNamed = false;
    int depth = 0;
    int entries = 0;
    int textBytes = 0;
};

Pass& passOf(void* context) {
    return *static_cast<Pass*>(static_cast<xmlParserCtxt*>(context)->_private);
}

void refuse(void* context) {
    passOf(context).isRefused = true;
    xmlStopParser(static_cast<xmlParserCtxt*>(context));
}

void refuseDoctype(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    refuse(context);
}

/// Folds each activity as soon as it is complete: the tree is never larger than what is kept of it.
void foldAtEnd(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri) {
    const auto* parser = static_cast<xmlParserCtxt*>(context);
    xmlNode* element = parser->node;
    xmlSAX2EndElementNs(context, name, prefix, uri);
    if (element == nullptr || element->parent == nullptr || element->parent != xmlDocGetRootElement(parser->myDoc))
        return;
    // libxml2 keeps the name at the input when it has to convert the bytes.
    const bool isEncodingNamed = passOf(context).isEncodingNamed || parser->encoding != nullptr ||
                                 parser->input->encoding != nullptr || parser->myDoc->encoding != nullptr ||
                                 parser->standalone == -1;
    XmlFold::Fold(*element, isEncodingNamed ? "UTF-8" : nullptr);
}

void countStart(void* context, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int, int,
                const xmlChar**) {
    Pass& pass = passOf(context);
    pass.entries += static_cast<int>(pass.depth == 1);
    ++pass.depth;
    pass.textBytes = 0;
}

void countEnd(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    --passOf(context).depth;
    passOf(context).textBytes = 0;
}

void countText(void* context, const xmlChar*, int length) {
    Pass& pass = passOf(context);
    pass.textBytes += length;
    if (pass.textBytes > maxTextBytes)
        refuse(context);
}

/// Null when there is no memory for it.
ParserContext makeParser(Pass& pass) {
    XmlEncodings::Register();
    ParserContext parser(xmlNewParserCtxt());
    if (!parser)
        return parser;
    parser->_private = &pass;
    parser->sax->internalSubset = refuseDoctype;
    parser->sax->serror = [](void*, auto*) {};
    return parser;
}

XmlDocument read(xmlParserCtxt& parser, const QByteArray& bytes) {
    return XmlDocument(xmlCtxtReadMemory(&parser, bytes.constData(), static_cast<int>(bytes.size()), nullptr, nullptr,
                                         XML_PARSE_NONET));
}

/// `isEncodingNamed`: the document will be saved in an encoding that these bytes do not name.
XmlDocument parse(const QByteArray& bytes, bool isEncodingNamed) {
    if (startsWithAny(viewOf(bytes), notScannable) || XmlParser::IsTooCostly(bytes))
        return nullptr;
    const XmlQuiet quiet;
    Pass pass{.isEncodingNamed = isEncodingNamed};
    const ParserContext parser = makeParser(pass);
    if (!parser)
        return nullptr;
    parser->sax->endElementNs = foldAtEnd;
    XmlDocument document = read(*parser, bytes);
    if (pass.isRefused || !document || xmlDocGetRootElement(document.get()) == nullptr)
        return nullptr;
    return document;
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

bool XmlParser::IsTooCostly(const QByteArray& bytes) {
    return bytes.size() > MaxBytes || !isCheapToParse(bytes);
}

XmlDocument XmlParser::Parse(const QByteArray& bytes) {
    return parse(bytes, false);
}

std::optional<int> XmlParser::CountEntries(const QByteArray& bytes) {
    if (startsWithAny(viewOf(bytes), notScannable) || IsTooCostly(bytes))
        return std::nullopt;
    const XmlQuiet quiet;
    Pass pass;
    const ParserContext parser = makeParser(pass);
    if (!parser)
        return std::nullopt;
    // Whatever builds nodes is left out.
    parser->sax->startElementNs = countStart;
    parser->sax->endElementNs = countEnd;
    parser->sax->characters = parser->sax->ignorableWhitespace = countText;
    parser->sax->cdataBlock = countText;
    parser->sax->comment = nullptr;
    parser->sax->processingInstruction = nullptr;
    parser->sax->reference = nullptr;
    std::ignore = read(*parser, bytes);
    const bool isWhole = parser->wellFormed == 1 && !pass.isRefused;
    return isWhole ? std::optional<int>(pass.entries) : std::nullopt;
}

XmlDocument XmlParser::ParseText(const QString& text) {
    if (text.contains(QChar(u'\0')))
        return nullptr;
    const DeclaredText declared = withoutEncoding(text);
    XmlDocument document = parse(declared.bytes, !declared.encoding.isEmpty());
    if (document && !declared.encoding.isEmpty()) {
        xmlFree(const_cast<xmlChar*>(document->encoding));
        document->encoding = xmlStrdup(reinterpret_cast<const xmlChar*>(declared.encoding.constData()));
    }
    return document;
}

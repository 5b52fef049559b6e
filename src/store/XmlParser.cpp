#include "XmlParser.h"
#include "XmlQuiet.h"
#include "XmlTagLengths.h"

#include <QRegularExpression>
#include <utility>

namespace {

/// A stopped parser still hands back what it has built, so the refusal needs a mark of our own.
void refuseDoctype(void* context, const xmlChar*, const xmlChar*, const xmlChar*) {
    auto* parser = static_cast<xmlParserCtxt*>(context);
    *static_cast<bool*>(parser->_private) = true;
    xmlStopParser(parser);
}

struct DeclaredText {
    QByteArray bytes;
    QByteArray encoding;
};

/// Takes the encoding out of the declaration: the text is UTF-8 now, whatever it says.
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

XmlDocument XmlParser::Parse(const QByteArray& bytes) {
    if (bytes.isEmpty() || bytes.size() > MaxBytes || !XmlTagLengths::AreWithin(bytes, MaxTagBytes))
        return nullptr;
    const XmlQuiet quiet;
    const XmlParserContext parser(xmlNewParserCtxt());
    if (!parser)
        return nullptr;
    bool hasDoctype = false;
    parser->_private = &hasDoctype;
    parser->sax->internalSubset = refuseDoctype;
    parser->sax->serror = [](void*, auto*) {};
    XmlDocument document(
        xmlCtxtReadMemory(parser.get(), bytes.constData(), static_cast<int>(bytes.size()), nullptr, nullptr,
                          XML_PARSE_NONET));
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

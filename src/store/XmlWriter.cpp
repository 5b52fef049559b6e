#include "XmlWriter.h"
#include "XmlParser.h"

#include <libxml/xmlsave.h>

namespace {

using Buffer = std::unique_ptr<xmlBuffer, XmlRelease<xmlBufferFree>>;

/// Calls `save` with a context that writes into memory; nullopt on any error.
template <typename Save>
std::optional<QByteArray> saved(const char* encoding, int options, const Save& save) {
    const XmlQuiet quiet;
    const Buffer buffer(xmlBufferCreate());
    if (!buffer)
        return std::nullopt;
    xmlBufferSetAllocationScheme(buffer.get(), XML_BUFFER_ALLOC_DOUBLEIT); // it would grow by ten bytes otherwise
    xmlSaveCtxt* context = xmlSaveToBuffer(buffer.get(), encoding, options);
    if (context == nullptr)
        return std::nullopt;
    const bool isSaved = save(context) >= 0;
    if (xmlSaveClose(context) < 0 || !isSaved)
        return std::nullopt;
    return QByteArray(reinterpret_cast<const char*>(xmlBufferContent(buffer.get())), xmlBufferLength(buffer.get()));
}

QString declaration(const xmlDoc& document) {
    if (!XmlWriter::IsDeclared(document))
        return {};
    QString text = QStringLiteral("<?xml version=\"%1\"").arg(XmlText::FromXml(document.version));
    if (document.encoding != nullptr)
        text += QStringLiteral(" encoding=\"%1\"").arg(XmlText::FromXml(document.encoding));
    if (document.standalone >= 0)
        text += document.standalone == 1 ? QStringLiteral(" standalone=\"yes\"") : QStringLiteral(" standalone=\"no\"");
    return text + QStringLiteral("?>\n");
}

} // namespace

bool XmlWriter::IsDeclared(const xmlDoc& document) {
    constexpr int undeclared = -1; // libxml2 notes it in this field
    return document.standalone != undeclared;
}

const char* XmlWriter::EncodingOf(const xmlDoc& document) {
    const auto* encoding = reinterpret_cast<const char*>(document.encoding);
    return encoding == nullptr && !IsDeclared(document) ? "UTF-8" : encoding;
}

std::optional<QByteArray> XmlWriter::Bytes(xmlDoc& document) {
    return saved(EncodingOf(document), IsDeclared(document) ? 0 : XML_SAVE_NO_DECL,
                 [&](xmlSaveCtxt* context) { return xmlSaveDoc(context, &document); });
}

QString XmlWriter::Markup(xmlDoc& document) {
    const auto bytes =
        saved("UTF-8", XML_SAVE_NO_DECL, [&](xmlSaveCtxt* context) { return xmlSaveDoc(context, &document); });
    return bytes ? declaration(document) + QString::fromUtf8(*bytes) : QString();
}

QString XmlWriter::Markup(xmlNode& node) {
    const auto bytes =
        saved("UTF-8", XML_SAVE_NO_DECL, [&](xmlSaveCtxt* context) { return xmlSaveTree(context, &node); });
    return bytes ? QString::fromUtf8(*bytes) : QString();
}

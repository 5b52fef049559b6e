// Strings in and out of libxml2's nodes, and which of them are names. Text is taken literally: markup in it stays text.
// Whoever calls owns the nodes; Set returns false for a node that holds no text, and when memory runs out.
#pragma once

#include <QByteArray>
#include <QString>
#include <libxml/tree.h>
#include <memory>

/// Releases a handle of libxml2 with the library's own function.
template <auto release>
struct XmlRelease {
    void operator()(auto* handle) const { release(handle); }
};

/// A node that is not part of a tree yet.
using XmlLooseNode = std::unique_ptr<xmlNode, XmlRelease<xmlFreeNode>>;

namespace XmlText {

/// QString::fromUtf8 without its rule that U+FEFF at the start is a byte order mark: here it is part of the text.
[[nodiscard]] QString FromUtf8(QByteArrayView utf8);
[[nodiscard]] QString FromXml(const xmlChar* text);
[[nodiscard]] inline const xmlChar* ToXml(const QByteArray& utf8) {
    return reinterpret_cast<const xmlChar*>(utf8.constData());
}

/// Whether this is a name in XML 1.0 (fifth edition), without colon.
[[nodiscard]] bool IsNcName(QStringView name);

/// Whether XML 1.0 allows this character.
[[nodiscard]] bool IsXmlCharacter(char32_t character);

/// The text without control characters, lone surrogates and the other characters that XML 1.0 does not allow.
[[nodiscard]] QString Storable(const QString& text);

/// The text and CDATA of a node and all its descendants.
[[nodiscard]] QString Of(const xmlNode* node);

/// Replaces the content of an element or attribute, or the characters of a text node.
bool Set(xmlNode* node, const QString& text);

} // namespace XmlText

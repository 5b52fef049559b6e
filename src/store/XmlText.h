// Text in and out of libxml2's nodes, as strings. Free functions; they do not fail except for lack of memory.
#pragma once

#include "XmlHandles.h"
#include <QByteArray>
#include <QString>

namespace XmlText {

[[nodiscard]] QString FromXml(const xmlChar* text);
[[nodiscard]] inline const xmlChar* ToXml(const QByteArray& utf8) {
    return reinterpret_cast<const xmlChar*>(utf8.constData());
}

/// Whether XML 1.0 can hold this character at all.
[[nodiscard]] bool IsXmlCharacter(char32_t character);

/// The text without the characters XML cannot hold (control characters, halves of surrogate pairs).
[[nodiscard]] QString Storable(const QString& text);

/// The text of a node and everything below it, text and CDATA only.
[[nodiscard]] QString Of(const xmlNode* node);

/// Replaces the content of an element or attribute, or the characters of a text node, by this text, taken literally.
/// False when the node holds no text of this kind.
bool Set(xmlNode* node, const QString& text);

} // namespace XmlText

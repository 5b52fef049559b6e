// Serializes a document or one of its nodes. Bytes fails (nullopt) when the encoding is unknown or cannot hold the
// document, Markup (for people) then returns "".
#pragma once

#include <QByteArray>
#include <QString>
#include <libxml/tree.h>
#include <optional>

namespace XmlWriter {

/// Whether the document has an XML declaration.
[[nodiscard]] bool IsDeclared(const xmlDoc& document);

/// The encoding in which the document is written; null when that is ASCII with references, for it names none.
[[nodiscard]] const char* EncodingOf(const xmlDoc& document);

/// The bytes of a file: keeps the declared encoding and standalone. Without a declaration it stays without one, in
/// UTF-8.
[[nodiscard]] std::optional<QByteArray> Bytes(xmlDoc& document);

/// The markup as text, with the declaration that the file would have.
[[nodiscard]] QString Markup(xmlDoc& document);
[[nodiscard]] QString Markup(xmlNode& node);

} // namespace XmlWriter

// Markup of a document or of one node. Free functions; nullopt when the document's encoding is unknown or cannot hold
// it.
#pragma once

#include "XmlHandles.h"
#include <QByteArray>
#include <QString>
#include <optional>

namespace XmlWriter {

/// The bytes of a file: declared encoding and standalone are kept; without a declaration it stays without (UTF-8).
[[nodiscard]] std::optional<QByteArray> Bytes(xmlDoc& document);

/// The markup as text, with the declaration as it would stand in the file.
[[nodiscard]] QString Markup(xmlDoc& document);
[[nodiscard]] QString Markup(xmlNode& node);

} // namespace XmlWriter

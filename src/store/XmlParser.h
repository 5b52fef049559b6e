// Turns bytes or text into a document, or refuses them: what is not well-formed, declares a DOCTYPE, is larger than
// 64 MiB or holds an overlong tag gives null. Nothing is repaired, no entity is loaded, nothing is printed.
#pragma once

#include "XmlHandles.h"
#include <QByteArray>
#include <QString>

namespace XmlParser {

constexpr qsizetype MaxBytes = 64 << 20;

/// The cost of a tag grows with the square of its attributes; no tag of ours has any.
constexpr qsizetype MaxTagBytes = 8 << 10;

/// Bytes in the encoding that they declare themselves.
[[nodiscard]] XmlDocument Parse(const QByteArray& bytes);

/// Text; the encoding it declares is not used but kept for saving.
[[nodiscard]] XmlDocument ParseText(const QString& text);

} // namespace XmlParser

// Finds the first node that a path names. Plain paths ("/items/NAME/field") go through the index and a child walk,
// every other expression through XPath. An invalid expression finds nothing, in silence.
#pragma once

#include "XmlIndex.h"
#include <QString>

namespace XmlPath {

/// Element, attribute, text, comment or the document itself; null when nothing matches.
[[nodiscard]] xmlNode* FindFirst(xmlDoc& document, XmlIndex& index, const QString& path);

} // namespace XmlPath

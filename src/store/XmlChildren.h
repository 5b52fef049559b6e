// How a node's children are counted and named. Free functions over one node; they cannot fail.
#pragma once

#include "XmlIndex.h"
#include <QString>

namespace XmlChildren {

/// Below the root only elements count (an indented file holds blanks and comments there), elsewhere everything but
/// blank text.
[[nodiscard]] int Count(const xmlNode& node, XmlIndex& index);
/// Null when there is no such child.
[[nodiscard]] xmlNode* At(const xmlNode& node, XmlIndex& index, int position);
/// The name as it stands in the markup; "#text", "#comment" and "#cdata-section" for what has none.
[[nodiscard]] QString NameOf(const xmlNode& node);

} // namespace XmlChildren

// Which names an element can have. Pure functions.
#pragma once

#include "XmlHandles.h"
#include <QStringView>

namespace XmlNames {

/// An XML 1.0 (fifth edition) name without colon.
[[nodiscard]] bool IsNcName(QStringView name);

/// Whether an element of this name can be saved in the document's encoding and found again. At most 1,000 UTF-16 units.
[[nodiscard]] bool IsUsable(const QString& name, const xmlDoc& document);

} // namespace XmlNames

// What kind of data a file holds, by its name alone. Free functions, no failure.
#pragma once

#include <QByteArray>
#include <QString>

namespace modContentType {

/// The media type that the system's database gives the extension of this file name, in any letter case;
/// "application/octet-stream" when it knows none. The file itself is not looked at.
[[nodiscard]] QByteArray GetContentType(const QString& fileName);

} // namespace modContentType

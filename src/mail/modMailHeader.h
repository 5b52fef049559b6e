// The header lines of a mail: those before the body and those before each attachment. Pure functions that cannot fail.
// Addresses have to be checked by the caller; any other text is made safe here, so that none can leave its line.
#pragma once

#include "MailMessage.h"
#include <QByteArray>
#include <QDateTime>

namespace modMailHeader {

/// Everything from "From:" to the empty line before the body, dated with the local time `when`. `boundary` is empty for
/// a mail without MIME parts; `related` means that the body shows one of the parts.
[[nodiscard]] QByteArray OfMessage(const MailMessage& message, const QDateTime& when, const QByteArray& boundary,
                                   bool related);

/// The boundary and header of a MIME part, the empty line included. `embedded` means that the body shows this part.
[[nodiscard]] QByteArray OfMimePart(const QString& name, const QByteArray& boundary, bool embedded);

/// The line before uuencoded data.
[[nodiscard]] QByteArray OfUuPart(const QString& name);

/// The file's name for readers, without its folder; control characters become "_".
[[nodiscard]] QString AttachmentName(const std::filesystem::path& file);

/// A boundary between MIME parts, made of the day since 1899-12-30 and the time of day, both in hexadecimal.
[[nodiscard]] QByteArray Boundary(const QDateTime& when);

/// The media type that the system's database has for the extension of this file name, in any letter case, else
/// "application/octet-stream". Does not look at the file.
[[nodiscard]] QByteArray GetContentType(const QString& fileName);

} // namespace modMailHeader

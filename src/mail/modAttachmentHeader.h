// How an attachment is introduced, and the names it goes by. Free functions, no failure: a file may be called anything,
// its name never leaves its place in the text.
#pragma once

#include <QByteArray>
#include <QString>
#include <filesystem>

namespace modAttachmentHeader {

/// The file's name without its folder, for people; control characters are replaced by "_".
[[nodiscard]] QString NameOf(const std::filesystem::path& file);

/// The delimiter and header of a MIME part, the empty line included. `embedded`: the body refers to it by its name.
[[nodiscard]] QByteArray MimePart(const QString& name, const QByteArray& boundary, bool embedded);

/// The line before uuencoded data.
[[nodiscard]] QByteArray UuBegin(const QString& name);

} // namespace modAttachmentHeader

// The files that tell a desktop of a file type and the program for it, as text: shared MIME info package, desktop entry
// and default application (the specifications of these names at freedesktop.org). Pure functions, no failure.
#pragma once

#include "FileTypes.h"
#include <QByteArray>

namespace DesktopTexts {

inline constexpr const char* MimeType = "application/x-kalvenor-activities";
inline constexpr const char* EntryName = "kalvenor-activities.desktop";

[[nodiscard]] QByteArray MimePackage(const FileType& type);

/// Not shown in menus: the file type asks for a program, not the user for a menu entry. No icon when it is not there.
[[nodiscard]] QByteArray Entry(const FileType& type);

/// A program's path as the key Exec wants it, all three layers of escapes included.
[[nodiscard]] QByteArray ExecProgram(const std::filesystem::path& program);

/// The default applications of our type: ours first, then those that were `before` (separated by ";").
[[nodiscard]] QString Defaults(const QString& before);

} // namespace DesktopTexts

// Reads a file that must be nobody else's business, such as one with passwords. A failure is an error code.
#pragma once

#include <QByteArray>
#include <filesystem>
#include <system_error>

namespace modPrivateFile {

inline constexpr qint64 LargestFile = 65536; ///< bytes

/// The content of a regular file (links followed) that belongs to the user or to root and gives no right to group and
/// others; any other is std::errc::operation_not_permitted. Windows looks at neither. A larger file is
/// std::errc::file_too_large.
[[nodiscard]] std::error_code Read(const std::filesystem::path& path, QByteArray& bytes);

} // namespace modPrivateFile

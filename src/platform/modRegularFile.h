// Opens files by a name from outside without ever blocking. A failure is an error code.
#pragma once

#include <QFile>
#include <filesystem>
#include <system_error>

namespace modRegularFile {

/// Opens `path` (links followed) for unbuffered reading. Only a regular file: a folder is std::errc::is_a_directory,
/// a FIFO, socket or device std::errc::invalid_argument.
[[nodiscard]] std::error_code Open(const std::filesystem::path& path, QFile& file);

} // namespace modRegularFile

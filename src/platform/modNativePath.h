// Native paths and their text form. A file name is a string of bytes that need not be valid text: file operations use
// the bytes, windows and logs show text.
#pragma once

#include <QString>
#include <filesystem>

namespace modNativePath {

/// For display: bytes that are not valid UTF-8 appear as \xNN.
[[nodiscard]] QString ToText(const std::filesystem::path& path);

/// The path a text names.
[[nodiscard]] std::filesystem::path FromText(const QString& text);

/// The absolute path a text names, relative to the current directory. "." and ".." stay: after a symbolic link only the
/// system knows where ".." leads. A trailing slash is removed. Empty for an empty or blank text, which never becomes
/// the current directory.
[[nodiscard]] std::filesystem::path Absolute(const QString& text);

} // namespace modNativePath

// Which names and paths lead to what they say. Windows bends some: it cuts off dots and blanks at their end, and takes
// others for devices. Those are refused.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

namespace WindowsName {

/// True for one component that can be the name of an entry.
[[nodiscard]] bool IsPlain(const std::filesystem::path& name);

/// The absolute path; std::errc::invalid_argument when a component would be bent, no_such_file_or_directory for an
/// empty one.
[[nodiscard]] std::filesystem::path Absolute(const std::filesystem::path& path, std::error_code& error);

/// The form of an absolute path that may have any length ("\\?\").
[[nodiscard]] std::wstring Extended(const std::filesystem::path& absolute);

/// The absolute path of that form.
[[nodiscard]] std::filesystem::path Plain(const std::wstring& extended);

/// Names of our own are plain ASCII; "" for any other.
[[nodiscard]] std::string Narrow(const std::wstring& name);

} // namespace WindowsName

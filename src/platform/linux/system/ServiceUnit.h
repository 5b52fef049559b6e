// The text of the unit file that makes a systemd service of this program; see systemd.unit(5) and systemd.service(5).
// Pure functions, no failure but the one told.
#pragma once

#include <QByteArray>
#include <filesystem>
#include <optional>

namespace ServiceUnit {

inline constexpr const char* FileName = "KalvenorPro.service";

/// The whole unit. nullopt when systemd would refuse to start a program of this name: it takes neither quotes,
/// backslashes and control characters in it, nor bytes that are no UTF-8.
[[nodiscard]] std::optional<QByteArray> Text(const std::filesystem::path& program);

} // namespace ServiceUnit

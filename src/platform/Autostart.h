// The programs that start with the user's session. Owns nothing; a change that fails says why and leaves the entry as
// it was.
#pragma once

#include <QString>
#include <filesystem>
#include <system_error>

class Autostart {
  public:
    virtual ~Autostart() = default;

    /// Whether there is an entry of this name, whoever made it and whatever it starts.
    [[nodiscard]] virtual bool Exists(const QString& name) const = 0;

    /// Makes the entry, or replaces it, so that this program is started without arguments. Takes an absolute path.
    [[nodiscard]] virtual std::error_code Create(const QString& name, const std::filesystem::path& program) = 0;

    /// Removes the entry, whoever made it. No error when there is none.
    [[nodiscard]] virtual std::error_code Remove(const QString& name) = 0;
};

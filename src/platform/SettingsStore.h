// The user's settings: text by application, section and key. Reading never fails (a missing or unreadable entry is
// "absent"); a write that fails says why and leaves what was stored before.
#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <system_error>

class SettingsStore {
  public:
    /// The application name of this program's own entries.
    static inline const QString OwnApplication = QStringLiteral("Kalvenor");

    virtual ~SettingsStore() = default;

    /// The stored text, exactly as written; nullopt when the key is absent.
    [[nodiscard]] virtual std::optional<QString> Read(const QString& application, const QString& section,
                                                      const QString& key) const = 0;

    /// Stores one value atomically and keeps every other entry. Line breaks in the value are refused with
    /// std::errc::invalid_argument.
    [[nodiscard]] virtual std::error_code Write(const QString& application, const QString& section, const QString& key,
                                                const QString& value) = 0;

    /// The file that holds them; empty where they are in none.
    [[nodiscard]] virtual std::filesystem::path FileOf(const QString& application) const = 0;
};

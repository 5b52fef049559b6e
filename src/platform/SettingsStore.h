// The user's settings: text by application, section and key. Reading never fails (an unreadable entry is
// "absent"); a write that fails returns an error code and changes nothing.
#pragma once

#include <QString>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

class SettingsStore {
  public:
    /// The application name of this program's own entries.
    static inline const QString OwnApplication = QStringLiteral("Kalvenor");

    /// Its section for the general options and the acceptance of the notice.
    static inline const QString OptionsSection = QStringLiteral("Options");

    /// Its section for what is told after a run.
    static inline const QString SummarySection = QStringLiteral("Summary");
    /// Its section for how schedules are counted.
    static inline const QString ScheduleSection = QStringLiteral("Schedule");

    virtual ~SettingsStore() = default;

    /// Keys of one section, each with its value.
    using Entries = std::vector<std::pair<QString, QString>>;

    /// The stored text without the blanks around it; nullopt when the key is absent.
    [[nodiscard]] virtual std::optional<QString> Read(const QString& application, const QString& section,
                                                      const QString& key) const = 0;

    /// Stores all values in one step and keeps all other entries, including those that another process stores at the
    /// same time. Line breaks in a value are refused with std::errc::invalid_argument.
    [[nodiscard]] virtual std::error_code WriteAll(const QString& application, const QString& section,
                                                   const Entries& entries) = 0;

    [[nodiscard]] std::error_code Write(const QString& application, const QString& section, const QString& key,
                                        const QString& value) {
        return WriteAll(application, section, {{key, value}});
    }

    /// The file that holds them; empty where they are not in a file.
    [[nodiscard]] virtual std::filesystem::path FileOf(const QString& application) const = 0;
};

// Recognises the program's own files among those an activity works on: the activity file, the settings and the locks,
// which no activity may replace, delete or log into, and the logs, which change with every line. A file that cannot be
// examined is not recognised.
#pragma once

#include "EngineServices.h"
#include "FileFacts.h"
#include <QString>
#include <set>
#include <vector>

class OwnPlaces final {
  public:
    /// `settings`: files of the settings store. `locks`: folder of the locks; without them a second engine would start.
    OwnPlaces(const EngineServices& services, std::vector<std::filesystem::path> settings, std::filesystem::path locks)
        : m_services(services), m_settings(std::move(settings)), m_locks(std::move(locks)) {}

    /// The activity file, the settings and the locks, as they are now: every save gives a file a new id.
    [[nodiscard]] std::set<FileId> Protected() const;

    /// True when the path leads to one of them.
    [[nodiscard]] bool IsProtected(const QString& path) const;

    /// The application log, and the log at this path.
    [[nodiscard]] std::set<FileId> Logs(const QString& activityLog) const;

    /// The folders that hold one of the protected files, at whatever depth.
    [[nodiscard]] std::set<FileId> Folders() const;

  private:
    [[nodiscard]] std::vector<std::filesystem::path> protectedPaths() const;

    const EngineServices& m_services;
    std::vector<std::filesystem::path> m_settings;
    std::filesystem::path m_locks;
};

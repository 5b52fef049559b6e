// Tells the program's own files among those that an activity works on: the activity file, the settings and the locks,
// which no activity may replace, delete or log into, and the logs, which change with every line. Owns nothing; a file
// that cannot be looked at is none of them.
#pragma once

#include "FileFacts.h"
#include <QString>
#include <set>
#include <vector>

class ActivityFile;
class EngineOptions;
class FileSystem;
class OwnFiles;

class OwnPlaces final {
  public:
    struct Parts {
        const ActivityFile& file;
        const EngineOptions& options;
        const OwnFiles& files;
        FileSystem& fileSystem;
        std::vector<std::filesystem::path> settings; ///< files of the settings store
        std::filesystem::path locks;                 ///< folder of the locks; without them a second engine would start
    };
    explicit OwnPlaces(Parts parts) : m_parts(std::move(parts)) {}

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

    Parts m_parts;
};

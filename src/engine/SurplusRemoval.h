// Deletes what a mirror's destination has and its source lacks. Owns nothing. A deletion happens only while the source
// root is still there and the activity still mirrors; anything else ends the run. Failures are logged and counted.
#pragma once

#include "Folder.h"
#include <QString>

class ActivityFile;
class ActivityLogs;
class FileTypeFilter;
class RunContext;
class SyncTexts;

class SurplusRemoval final {
  public:
    struct Parts {
        ActivityFile& file;
        ActivityLogs& logs;
        const SyncTexts& texts;
    };
    explicit SurplusRemoval(const Parts& parts) : m_parts(parts) {}

    /// True while the run goes on, the activity still mirrors and the source root is where it was. Else ends the run.
    [[nodiscard]] bool MayDelete(RunContext& run) const;

    /// Deletes one file whose line is in the log already.
    void DeleteFile(RunContext& run, Folder& folder, const std::filesystem::path& name);

    /// Deletes a folder with everything in it that passes the filter; links to folders, special files, other file
    /// systems and the run's own roots stay, and with them the folders they are in.
    void DeleteTree(RunContext& run, Folder& parent, const FolderEntry& entry, const FileTypeFilter& filter);

  private:
    void emptyFolder(RunContext& run, Folder& parent, const FolderEntry& entry, const FileTypeFilter& filter,
                     bool logFiles);
    Parts m_parts;
};

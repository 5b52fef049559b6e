// Remembers on which drives the directories of each activity were at its last run, in a file of the state folder, and
// holds a run that finds a bare mount point instead: a mirror would empty its destination, a move would fill the wrong
// disk. Without the file, or with one that cannot be read or written, nothing is held.
#pragma once

#include "Folder.h"
#include "RunFacts.h"
#include "StateFile.h"

#include <optional>
#include <set>

class DriveGuard final {
  public:
    /// `folder`: the program's state folder; empty: nothing is remembered.
    DriveGuard(OwnFiles& files, std::filesystem::path folder) : m_file(files, std::move(folder), ".drives") {}

    /// The directory that keeps the run from starting; nullopt when nothing does.
    [[nodiscard]] std::optional<QString> Find(const RunIdentity& run, const Folder& source, const Folder& destination);

    /// The same; the activity counts as held then.
    [[nodiscard]] std::optional<QString> Hold(const RunIdentity& run, const Folder& source, const Folder& destination);

    /// True when the activity was held and has not run since.
    [[nodiscard]] bool IsHeld(const RunIdentity& run) const { return m_held.contains(keyOf(run)); }

    /// To be called after a run: these are its drives now.
    void Remember(const RunIdentity& run, const Folder& source, const Folder& destination);

  private:
    using Key = std::pair<QString, QString>; ///< activity file, name
    [[nodiscard]] static Key keyOf(const RunIdentity& run) { return {run.activityFile, run.name}; }
    [[nodiscard]] const QJsonObject& load(const RunIdentity& run);

    StateFile m_file;
    QString m_loadedFor; ///< an activity file
    QJsonObject m_drives;
    std::set<Key> m_held;
};

// One file on its way, and one folder that waits for its content. Plain values.
#pragma once

#include "TemporaryFile.h"

#include <sys/stat.h>

struct FileJob {
    std::shared_ptr<LinuxFolder> source;
    std::shared_ptr<LinuxFolder> destination;
    std::filesystem::path name;
    FileFacts facts;                     ///< of the source, as it was listed
    bool removeSource = false;           ///< once the copy is safe
    std::optional<FileFacts> replaced{}; ///< what the destination had when the transfer was decided

    [[nodiscard]] std::filesystem::path SourcePath() const { return source->Path() / name; }
};

/// A copy that is complete but not yet in place.
struct StagedFile {
    FileJob job;
    TemporaryFile copy;
    std::error_code error; ///< of bringing it to disk
    bool isPlaced = false;
};

/// A folder of the destination that gets its own times and bits when everything in it is in place.
struct StagedFolder {
    std::shared_ptr<LinuxFolder> sourceParent;
    std::shared_ptr<LinuxFolder> source;
    std::shared_ptr<LinuxFolder> destination;
    std::filesystem::path name;
    struct stat status {}; ///< of the source before anything was taken out of it
    bool removeSource = false;
};

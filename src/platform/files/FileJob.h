// One file on its way from a source to a destination, the folder that waits for its content, and the rules for the name
// it takes. Failures are error codes.
#pragma once

#include "TemporaryFile.h"
#include "Trash.h"
#include "WorkMark.h"

struct FileJob {
    std::shared_ptr<Folder> source;
    std::shared_ptr<Folder> destination;
    std::filesystem::path name;
    FileFacts facts;                     ///< the source when it was listed
    bool removeSource = false;           ///< once the copy is safe
    std::optional<FileFacts> replaced{}; ///< the destination when the transfer was decided

    [[nodiscard]] std::filesystem::path SourcePath() const { return source->Path() / name; }
};

/// A copy that is complete but not yet in place.
struct StagedFile {
    FileJob job;
    EntryStatus sourceEntry{}; ///< the entry itself, also of a link, before its bytes were copied
    TemporaryFile copy;
    unsigned batch = 0;     ///< the batch that was filling when its first byte was written
    bool syncAlone = false; ///< that batch has been synced: a sync of this one may not report an error of the file
    std::error_code error;  ///< of the sync, or of placing
    Trash::KeptFile kept;   ///< the file it replaces
    bool isPlaced = false;
};

/// A folder of the destination that gets its own times and bits when everything in it is in place.
struct StagedFolder {
    std::shared_ptr<Folder> sourceParent;
    std::shared_ptr<Folder> source;
    std::shared_ptr<Folder> destination;
    std::filesystem::path name;
    EntryStatus status{}; ///< of the source before anything was taken out of it
    bool removeSource = false;
    bool isComplete = false; ///< its transfer was not stopped in between
    WorkMark mark;           ///< until it is done
    std::error_code error;   ///< of the sync of its names
};

enum class DestinationState {
    Free,        ///< nothing has this name
    Replaceable, ///< the file, or link to a file, that the job was decided to replace
    IsSource     ///< the source itself
};

/// Looks at the entry under the name of `job`. std::errc::is_a_directory for a folder, file_exists for anything else
/// that a file must not replace, resource_unavailable_try_again when it is not what the job was decided to replace.
[[nodiscard]] std::error_code CheckDestination(const FileJob& job, DestinationState& state);

/// Keeps the file that the job replaces; nothing without a `trash`, or where the run itself has put that file there.
[[nodiscard]] std::error_code KeepReplaced(Trash* trash, const FileJob& job, Trash::KeptFile& kept);

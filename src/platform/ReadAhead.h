// Two folders of one name that a helper thread opens and looks into while other work goes on. Hides no error: what
// could not be read has to be opened and listed again by the caller, who then gets the reason.
#pragma once

#include "Folder.h"

class ReadAhead {
  public:
    struct Order {
        std::shared_ptr<Folder> source; ///< the folder that `entry` was listed in
        FolderEntry entry;              ///< a sub-folder
        std::shared_ptr<Folder> destination;
        bool listsDestination = false; ///< wholly; else the files of the source are looked for, as time permits
    };
    struct Result {
        std::shared_ptr<Folder> source;
        std::vector<FolderEntry> entries;    ///< as Folder::List gives them
        std::shared_ptr<Folder> destination; ///< null: there is none, or it could not be read
        std::vector<FolderEntry> found;      ///< of the destination, sorted by name
    };

    /// Gives the order up.
    virtual ~ReadAhead() = default;

    /// Returns when the source is listed; calls `wait`, in which events may run, several times a second until then.
    /// nullopt when it was not begun or has failed. To be called once.
    [[nodiscard]] virtual std::optional<Result> Take(const std::function<void()>& wait) = 0;
};

// Watches a folder for changes in the background. It may tell of more than has happened, never of less: where it has
// lost sight it says that anything may have changed, and where it cannot watch it ends with the reason.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <system_error>
#include <vector>

struct WatchOrder {
    std::filesystem::path folder;               ///< absolute
    bool hasSubfolders = false;                 ///< with all of them, links not followed
    bool tellsRemovals = false;                 ///< tells also of what was deleted or moved away
    std::vector<std::filesystem::path> leftOut; ///< absolute; their contents are not watched
};

enum class WatchEnd {
    NetworkFolder, ///< another machine's changes would not be told of
    LimitReached,  ///< the system watches no more folders for this user
    Gone,          ///< the path leads to another folder now, or nowhere
    Failed
};

class FolderWatch {
  public:
    struct News {
        /// Entries that were changed or are new, absolute. Never the program's own temporary files or its trash.
        std::set<std::filesystem::path> changed;
        bool isAnything = false;     ///< more may have changed: watching has just begun, or was not quick enough
        std::optional<WatchEnd> end; ///< no more news will come
        std::error_code error;       ///< why it has Failed
    };

    /// Ends the watch.
    virtual ~FolderWatch() = default;

    /// What has happened since the last call. Never waits.
    [[nodiscard]] virtual News Take() = 0;
};

class FolderWatches {
  public:
    virtual ~FolderWatches() = default;

    /// Returns at once; the first news says that watching has begun, or has ended.
    [[nodiscard]] virtual std::unique_ptr<FolderWatch> Begin(const WatchOrder& order) = 0;
};

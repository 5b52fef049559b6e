// Carries out an activity's action for one pair of folders: their files, and their sub-folders, each of which goes back
// to the caller's walk. Owns nothing; the failure of one file never ends the run.
#pragma once

#include "FolderView.h"
#include "SyncRules.h"
#include <functional>

class ActivityLogs;
class MonitoringSwitch;
class Prompter;
class Reactions;
class RunContext;
class SafeExit;
class SurplusRemoval;
class SyncTexts;
struct FileSide;

/// One level of the walk.
struct FolderPair {
    FolderPair(std::shared_ptr<Folder> sourceFolder, std::shared_ptr<Folder> destinationFolder,
               const RunState& runState)
        : source(std::move(sourceFolder), runState), destination(std::move(destinationFolder), runState) {}
    FolderView source;
    FolderView destination;
};

class ActionExecution final {
  public:
    struct Parts {
        ActivityLogs& logs;
        Reactions& reactions;
        SafeExit& safeExit;
        SurplusRemoval& surplus;
        MonitoringSwitch& monitoring;
        Prompter& prompter;
        const SyncTexts& texts;
    };
    /// Walks a pair of sub-folders.
    using Walk =
        std::function<void(RunContext& run, std::shared_ptr<Folder> source, std::shared_ptr<Folder> destination)>;

    explicit ActionExecution(const Parts& parts) : m_parts(parts) {}

    /// The files directly in the two folders. Lists both.
    void SyncFiles(RunContext& run, FolderPair& pair);

    /// The sub-folders, after SyncFiles has listed the pair.
    void SyncFolders(RunContext& run, FolderPair& pair, const Walk& walk);

    /// Ends the program when the user holds the emergency key; to be called after every file and folder.
    void AbortTest(RunContext& run);

  private:
    [[nodiscard]] bool listPair(RunContext& run, FolderPair& pair);
    void mirrorPass(RunContext& run, FolderPair& pair);
    void mainPass(RunContext& run, FolderPair& pair);
    void syncSurplus(RunContext& run, FolderPair& pair, const std::filesystem::path& name);
    void syncExisting(RunContext& run, FolderPair& pair, const std::filesystem::path& name, const FileFacts& source,
                      const FileFacts& destination);
    void syncNew(RunContext& run, FolderPair& pair, const std::filesystem::path& name, const FileFacts& source);
    void transfer(RunContext& run, FolderPair& pair, const std::filesystem::path& name, const FileFacts& source,
                  FileAction action);
    void syncFolder(RunContext& run, FolderPair& pair, const FolderEntry& entry, const Walk& walk);
    void deleteSurplusFolders(RunContext& run, FolderPair& pair);

    Parts m_parts;
};

// The files of one pair of folders: compares them, asks the user, and hands the transfer what to copy or move. Owns
// what it remembers of the pair's files. The failure of one file never ends the run.
#pragma once

#include "SyncRun.h"

struct FileSide;

class FileSync final {
  public:
    FileSync(SyncRun& run, FolderPair& pair) : m_run(run), m_tools(run.Tools()), m_pair(pair) {}

    /// Lists both folders. A mirror that cannot list one of them ends the run: half a listing makes the rest look
    /// surplus.
    void Run();

  private:
    /// A file and its destination as they were when the decision was made.
    struct Decided {
        std::filesystem::path name;
        FileFacts source;
        std::optional<FileFacts> destination;
        unsigned at = 0; ///< interruptions counted so far
    };

    [[nodiscard]] bool list();
    void mirrorPass();
    void bringBack(const FolderEntry& entry);
    void deleteSurplus(const FolderEntry& entry);
    void mainPass();
    void mainPass(bool (*isMeant)(const FolderEntry&));
    void syncFile(const FolderEntry& entry);
    [[nodiscard]] bool leavesOut(const FolderEntry& entry, const FileFacts& source);
    void syncExisting(const Decided& file);
    [[nodiscard]] std::optional<FileDecision> ask(const Decided& file, const FileSide& from, const FileSide& to);
    void syncNew(const Decided& file);
    [[nodiscard]] bool finishMove(const Decided& file, const FileSide& from, const FileSide& to);
    [[nodiscard]] TransferFile orderOf(const Decided& file) const;
    void transfer(const Decided& file);
    [[nodiscard]] bool mayTouch(const Decided& file);
    [[nodiscard]] bool isAsDecided(const Decided& file);
    [[nodiscard]] bool takesPart(FolderView& view, const FolderEntry& entry);
    void failed(const FolderView& view, const std::filesystem::path& name, std::error_code error);

    SyncRun& m_run;
    const RunTools& m_tools;
    FolderPair& m_pair;
    std::set<std::filesystem::path> m_failed; ///< not to be tried a second time
    bool m_leavesOut = false;                 ///< a file that may still be being written
};

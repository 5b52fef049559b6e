// The two folders of one level of a run: what each lists, and which of their names are one. Owns both listings. A
// folder that cannot be listed is an error, never empty.
#pragma once

#include "FolderView.h"
#include <QMultiHash>
#include <map>
#include <set>

/// Which entry of the destination each name of the source leads to. Only the disk can tell: on one that folds letter
/// case two names may be one file, and an entry that is spelt differently is no surplus. What cannot be determined
/// is an error, or spared.
class DestinationNames final {
  public:
    DestinationNames(FolderView& source, FolderView& destination) : m_source(source), m_destination(destination) {}

    /// Claims the entry `found`, to which the name leads, for a name of the source. std::errc::file_exists when the
    /// entry belongs to another name of the source: two files meet at one place, and the second one stays where it is.
    /// `exactOnly`: the entry must be spelt like the name (otherwise a file moved here a moment ago would be replaced).
    [[nodiscard]] std::error_code Claim(const std::filesystem::path& name, const FileFacts& found, bool exactOnly);

    /// To be called when both folders were listed and nothing has been transferred yet: finds the entries that are
    /// counterparts of differently spelt names.
    void FindCounterparts();

    /// True for an entry that FindCounterparts has found, and for all of them when it could not tell which.
    [[nodiscard]] bool IsCounterpart(const std::filesystem::path& name) const {
        return m_isUnclear || m_counterparts.contains(name);
    }

  private:
    void remember(const std::vector<FolderEntry>& entries);
    [[nodiscard]] bool folds(const std::filesystem::path& name);
    [[nodiscard]] std::optional<std::filesystem::path> listedName(const std::filesystem::path& name,
                                                                  const FileFacts& found) const;
    [[nodiscard]] std::optional<std::filesystem::path> realName(const std::filesystem::path& name,
                                                                const FileFacts& found);

    FolderView& m_source;
    FolderView& m_destination;
    // The destination's entries, where it folds.
    std::map<std::filesystem::path, FileId> m_listed;
    QMultiHash<QString, std::filesystem::path> m_alike;              ///< by the name without regard to letter case
    std::optional<bool> m_folds;                                     ///< unknown until an entry with a letter was met
    std::map<std::filesystem::path, std::filesystem::path> m_claims; ///< entry -> name
    std::set<std::filesystem::path> m_counterparts;
    bool m_isUnclear = false;
};

struct SeenPair {
    SeenFolder source;
    SeenFolder destination;
};

/// One level of the walk.
struct FolderPair {
    FolderPair(SeenPair folders, int level, const Interruptions& interruptions)
        : source(std::move(folders.source), interruptions), destination(std::move(folders.destination), interruptions),
          names(source, destination), depth(level) {}

    /// Opens what is not open yet of two of its folders.
    [[nodiscard]] bool Open(const FolderEntry& sourceEntry, const FolderEntry& destinationEntry, SeenPair& folders,
                            std::error_code& error) const;

    FolderView source;
    FolderView destination;
    DestinationNames names;
    int depth;                       ///< 0 for the two roots
    bool hasUnfinishedMoves = false; ///< files that were moved here may still have their sources
    bool mayDelete = true;           ///< false below a mount in the destination: what lies there is another tree's
};

// Which entry of a destination folder the names of its source lead to. Only the disk can tell: on one that folds letter
// case two names may be one file, and an entry that is spelt differently is no surplus. Owns what it has found out
// about one pair of folders. What cannot be told for sure is an error, or spared.
#pragma once

#include "FolderView.h"
#include <QMultiHash>
#include <QString>
#include <map>
#include <set>

class DestinationNames final {
  public:
    DestinationNames(FolderView& source, FolderView& destination) : m_source(source), m_destination(destination) {}

    /// Claims the entry `found`, to which the name leads, for a name of the source. std::errc::file_exists when the
    /// entry belongs to another name of the source: two files meet at one place, and the second one stays where it is.
    /// `exactOnly`: the entry must be spelt like the name (what is moved here a moment ago would else be replaced).
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

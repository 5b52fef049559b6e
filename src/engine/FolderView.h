// One listing of a folder, kept fresh while the folder is worked on. Owns the entries; a listing that failed is empty
// and says so. What is staged for the folder counts as already there.
#pragma once

#include "Folder.h"
#include "Interruptions.h"
#include <QString>

/// A folder, and what was found in it a moment ago.
struct SeenFolder {
    std::shared_ptr<Folder> folder;
    std::vector<FolderEntry> entries{}; ///< sorted by name
    bool isListed = false;              ///< these are all
    Interruptions::Look look{};
};

class FolderView final {
  public:
    FolderView(SeenFolder folder, const Interruptions& interruptions);

    /// Reads the folder to its end, unless it has just been read. The error must be looked at: only a listing without
    /// one may count as empty.
    [[nodiscard]] std::error_code List();

    [[nodiscard]] const std::shared_ptr<Folder>& Handle() const { return m_folder; }
    [[nodiscard]] const std::vector<FolderEntry>& Entries() const { return m_entries; }

    /// The full path of an entry, as text for people.
    [[nodiscard]] QString PathOf(const std::filesystem::path& name);

    /// Frees what PathOf has worked out. To be called before the walk goes deeper: a whole path at every level would
    /// take memory with the square of the depth.
    void ForgetPath() { m_pathPrefix.clear(); }

    /// The entry as it is now: from the listing as long as that is fresh, else looked at again. What the listing lacks
    /// is always looked for: a disk that folds letter case finds it under another spelling.
    [[nodiscard]] std::optional<FileFacts> Facts(const std::filesystem::path& name);

    /// The same for one of Entries(), which need not be searched for.
    [[nodiscard]] std::optional<FileFacts> Facts(const FolderEntry& listed);

    /// Whether the listing had any entry of this name.
    [[nodiscard]] bool Has(const std::filesystem::path& name) const;

    /// A file was staged under this name and will look so once it is committed.
    void SetStaged(const std::filesystem::path& name, const FileFacts& facts);

  private:
    [[nodiscard]] bool isFresh() const;
    [[nodiscard]] std::optional<FileFacts> lookAgain(const std::filesystem::path& name) const;

    std::shared_ptr<Folder> m_folder;
    QString m_pathPrefix; ///< with a separator at its end; empty until it is needed
    const Interruptions& m_interruptions;
    std::vector<FolderEntry> m_entries;
    std::vector<FolderEntry> m_staged;
    Interruptions::Look m_look; ///< at the entries
    bool m_isListed;            ///< wholly
};

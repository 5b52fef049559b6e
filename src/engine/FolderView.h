// One listing of a folder, kept fresh while the folder is worked on. Owns the entries; a listing that failed is empty
// and says so. What was staged for the folder counts as being there already.
#pragma once

#include "Folder.h"
#include <QString>

class Interruptions;

class FolderView final {
  public:
    FolderView(std::shared_ptr<Folder> folder, const Interruptions& interruptions);

    /// Reads the folder to its end. The error must be looked at: only a listing without one may count as empty.
    [[nodiscard]] std::error_code List();

    [[nodiscard]] const std::shared_ptr<Folder>& Handle() const { return m_folder; }
    [[nodiscard]] const std::vector<FolderEntry>& Entries() const { return m_entries; }

    /// The full path of an entry, as text for people.
    [[nodiscard]] QString PathOf(const std::filesystem::path& name) const;

    /// The entry as it is now: from the listing as long as nothing else could run since, else looked at again. What the
    /// listing lacks is always looked for: a disk that folds letter case finds it under another spelling.
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
    QString m_pathPrefix; ///< with a separator at its end
    const Interruptions& m_interruptions;
    std::vector<FolderEntry> m_entries;
    std::vector<FolderEntry> m_staged;
    unsigned m_listedAt = 0;
    bool m_listed = false;
};

// Where one run keeps what it deletes and replaces: a dated folder below ".kalvenor-trash" in the root of its
// destination, on the same file system, so that keeping is a rename. The kept files lie there under the paths they had,
// beside a journal of what happened to each. What cannot be kept fails with a code and stays where it is.
#pragma once

#include "Folder.h"
#include "KeptRun.h"

class JournalFile;
class PlacedNames;
struct JournalLine;

class Trash final {
  public:
    /// Makes nothing on disk before something is kept. `run.name` is the wanted name of the run's folder; where it is
    /// taken, the folder gets a number too.
    Trash(std::shared_ptr<Folder> root, KeptRun run);
    ~Trash();
    Trash(const Trash&) = delete;
    Trash& operator=(const Trash&) = delete;

    struct KeptFile {
        std::shared_ptr<Folder> folder; ///< null: nothing was kept
        std::filesystem::path name;
        bool isStillThere = false; ///< under its old name too, until another file takes that
    };
    /// Takes a file, a link or an empty folder away. std::errc::resource_unavailable_try_again when it has changed
    /// since it was listed, cross_device_link where it lies on another file system than the root.
    /// `placed`: of the file that will take its name, if any.
    [[nodiscard]] std::error_code Keep(Folder& folder, const FolderEntry& entry, const std::optional<FileFacts>& placed,
                                       KeptFile& kept);

    /// Keeps a file that one with the facts `placed` is about to replace. Where the file system has no hard links, its
    /// old name is free then. Call Sync before the new file takes the name.
    [[nodiscard]] std::error_code KeepReplaced(const Folder& folder, const std::filesystem::path& name,
                                               const FileFacts& placed, KeptFile& kept);
    /// The file was not replaced or taken away after all. If its name has been taken meanwhile, it stays in the trash.
    static void PutBack(const Folder& folder, const std::filesystem::path& name, const KeptFile& kept);

    /// Brings journal and names to disk. May run on a helper thread while nothing else uses this object.
    [[nodiscard]] std::error_code Sync();

    /// Of the run's folder; empty while nothing has been kept.
    [[nodiscard]] std::filesystem::path Path() const;

  private:
    [[nodiscard]] std::error_code begin();
    [[nodiscard]] std::error_code makeRun(const std::shared_ptr<Folder>& trash);
    [[nodiscard]] std::error_code enter(const Folder& folder);
    [[nodiscard]] std::error_code keepFolder(Folder& parent, const FolderEntry& entry);
    [[nodiscard]] std::error_code choose(const std::filesystem::path& name, JournalLine& line, KeptFile& kept);

    std::shared_ptr<Folder> m_root;
    KeptRun m_run;
    std::shared_ptr<Folder> m_files; ///< of the run; null before Keep
    std::filesystem::path m_path;
    std::unique_ptr<JournalFile> m_journal;
    std::unique_ptr<PlacedNames> m_names;
    std::filesystem::path m_entered; ///< relative to the root
    std::shared_ptr<Folder> m_place; ///< its counterpart among the kept files
};

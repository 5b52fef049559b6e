// Creates temporary files beside their destination and puts them in place. Remembers which file systems support a file
// without a name. Failures are error codes and leave an old destination whole.
#pragma once

#include "FileJob.h"
#include "TemporaryName.h"

#include <map>

class TemporaryFiles final {
  public:
    TemporaryFiles();

    /// A new empty file in the folder, open for writing. It is private to the owner unless the permission bits `mode`
    /// could be given to it at once (`HasFinalMode`).
    [[nodiscard]] std::error_code Create(const std::shared_ptr<Folder>& folder, std::uint32_t mode,
                                         TemporaryFile& file);

    /// Gives the file its name; std::errc::file_exists when the name is taken.
    [[nodiscard]] std::error_code PlaceAtFreeName(TemporaryFile& file, const std::filesystem::path& name);

    /// Gives the file its name in one step, over any file that has it.
    [[nodiscard]] std::error_code Replace(TemporaryFile& file, const std::filesystem::path& name);

    /// Gives the copy the name of its job, which is free or taken by the file that the job was decided to replace.
    /// `placed` stays false, without an error, when the destination is the source itself. Fails as CheckDestination.
    [[nodiscard]] std::error_code Place(TemporaryFile& file, const FileJob& job, bool& placed);

    /// Makes a mark of this process in the folder.
    [[nodiscard]] WorkMark Mark(const std::shared_ptr<Folder>& folder, TemporaryKind kind) const {
        return {folder, m_process, kind};
    }

    /// The permission bits that the system clears on new files (umask).
    [[nodiscard]] std::uint32_t CreationMask() const { return m_creationMask; }

  private:
    [[nodiscard]] std::error_code supportsUnnamed(const Folder& folder, bool& supported);
    [[nodiscard]] std::error_code createNamed(const std::shared_ptr<Folder>& folder, TemporaryFile& file) const;
    [[nodiscard]] std::error_code link(int file, const Folder& folder, const char* name);
    [[nodiscard]] bool mayCreateWith(std::uint32_t mode, const Folder& folder) const;

    ProcessMark m_process;
    std::uint32_t m_creationMask;
    bool m_linksByDescriptor = true;
    std::map<std::uint64_t, bool> m_unnamed; ///< by device
};

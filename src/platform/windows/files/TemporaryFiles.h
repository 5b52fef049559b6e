// Creates temporary files beside their destination and puts them in place. Failures are error codes and leave an old
// destination whole.
#pragma once

#include "FileJob.h"
#include "TemporaryName.h"

class TemporaryFiles final {
  public:
    TemporaryFiles() : m_process(ProcessMark::OfThisProcess()) {}

    /// A new empty file in the folder, open for writing and with what `access` asks for besides, hidden until it gets
    /// its attributes.
    [[nodiscard]] std::error_code Create(const std::shared_ptr<Folder>& folder, TemporaryFile& file,
                                         ACCESS_MASK access = 0) const;

    /// Gives the file its name; std::errc::file_exists when the name is taken.
    [[nodiscard]] std::error_code PlaceAtFreeName(TemporaryFile& file, const std::filesystem::path& name) const;

    /// Gives the file its name in one step, over any file that has it. A file that is open elsewhere
    /// (std::errc::device_or_resource_busy) or read-only (std::errc::permission_denied) stays.
    [[nodiscard]] std::error_code Replace(TemporaryFile& file, const std::filesystem::path& name) const;

    /// Gives the copy the name of its job, which is free or taken by the file that the job was decided to replace.
    /// `placed` stays false, without an error, when the destination is the source itself. Fails as CheckDestination.
    [[nodiscard]] std::error_code Place(TemporaryFile& file, const FileJob& job, bool& placed);

    /// Makes a mark of this process in the folder.
    [[nodiscard]] WorkMark Mark(const std::shared_ptr<Folder>& folder, TemporaryKind kind) const {
        return {folder, m_process, kind};
    }

  private:
    ProcessMark m_process;
};

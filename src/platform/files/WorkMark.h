// A hidden file in a folder that says: work here is not finished. It outlives a process that is killed, so that the
// next run can finish the work. One that cannot be made or removed does no harm.
#pragma once

#include "Folder.h"
#include "TemporaryName.h"

class WorkMark final {
  public:
    WorkMark() = default;

    /// Makes the mark.
    WorkMark(std::shared_ptr<Folder> folder, const ProcessMark& maker, TemporaryKind kind);

    /// The work is finished. May fail; then the mark is still there.
    [[nodiscard]] std::error_code Remove();

    /// This process will not finish the work: leaves it to the next run.
    void Abandon() const;

  private:
    std::shared_ptr<Folder> m_folder;
    ProcessMark m_maker;
    TemporaryKind m_kind = TemporaryKind::NewFolder;
    std::string m_name;
};

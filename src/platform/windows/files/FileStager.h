// Copies one file into a temporary file beside its destination, with its time and attributes. Nobody can write to the
// source meanwhile, and a source that is open for writing is not copied (std::errc::device_or_resource_busy). Failures
// are error codes and leave no temporary behind.
#pragma once

#include "Attributes.h"
#include "FileJob.h"
#include "FileSystem.h"
#include "TemporaryFiles.h"

#include <vector>

class FileStager final {
  public:
    FileStager(TransferObserver& observer, TemporaryFiles& temporaries)
        : m_observer(observer), m_temporaries(temporaries) {}

    /// std::errc::resource_unavailable_try_again when the source differs from `job.facts` before or after the copy.
    [[nodiscard]] std::error_code Stage(const FileJob& job, StagedFile& staged);

  private:
    [[nodiscard]] std::error_code copyBytes(HANDLE source, HANDLE copy, std::uint64_t size);

    TransferObserver& m_observer;
    TemporaryFiles& m_temporaries;
    std::vector<char> m_buffer;
};

// Copies one file into a temporary file beside its destination, complete with its attributes. Owns nothing that lasts
// but the knowledge of the file systems met. Failures are error codes and leave nothing behind.
#pragma once

#include "Attributes.h"
#include "ByteCopier.h"
#include "FileJob.h"
#include "TemporaryFiles.h"

class FileStager final {
  public:
    FileStager(TransferObserver& observer, TemporaryFiles& temporaries)
        : m_bytes(observer), m_temporaries(temporaries) {}

    /// std::errc::resource_unavailable_try_again when the source is not, or does not stay, what `job.facts` say.
    [[nodiscard]] std::error_code Stage(const FileJob& job, StagedFile& staged);

  private:
    [[nodiscard]] std::error_code copyInto(const FileJob& job, int source, bool mayHaveHoles, TemporaryFile& copy);

    ByteCopier m_bytes;
    Attributes m_attributes;
    TemporaryFiles& m_temporaries;
};

// Copies one file into a temporary file beside its destination, with all its attributes. Remembers what the file
// systems it has met support. Failures are error codes and leave no temporary behind.
#pragma once

#include "Attributes.h"
#include "FileJob.h"
#include "FileSystem.h"
#include "TemporaryFiles.h"

#include <map>
#include <vector>

/// Copies the bytes of one file in the fastest way that the two file systems support, and keeps holes. After a failure
/// the caller discards the incomplete copy.
class ByteCopier final {
  public:
    explicit ByteCopier(TransferObserver& observer) : m_observer(observer) {}

    struct Job {
        int source = -1;
        int destination = -1;
        std::uint64_t size = 0;
        bool mayHaveHoles = false;
        bool checkEnd = false; ///< check that the source ends at its size
        std::uint64_t sourceDevice = 0;
        std::uint64_t destinationDevice = 0;
    };

    /// std::errc::operation_canceled when the observer gives up, io_error when the source ends before its size or goes
    /// on after it.
    [[nodiscard]] std::error_code Copy(const Job& job);

  private:
    struct Methods {
        bool clone = true;
        bool copyRange = true;
    };

    [[nodiscard]] std::error_code copyRange(const Job& job, Methods& methods, std::uint64_t begin, std::uint64_t end);
    [[nodiscard]] std::error_code copyByRanges(const Job& job, Methods& methods, std::uint64_t& at, std::uint64_t end);
    [[nodiscard]] std::error_code copyByReading(const Job& job, std::uint64_t& at, std::uint64_t end);
    [[nodiscard]] std::error_code copySegments(const Job& job, Methods& methods);
    [[nodiscard]] std::error_code copied(const Job& job, std::uint64_t at, std::uint64_t count);

    TransferObserver& m_observer;
    std::map<std::pair<std::uint64_t, std::uint64_t>, Methods> m_methods; ///< by pair of devices
    std::vector<char> m_buffer;
};

class FileStager final {
  public:
    FileStager(TransferObserver& observer, TemporaryFiles& temporaries)
        : m_bytes(observer), m_temporaries(temporaries) {}

    /// std::errc::resource_unavailable_try_again when the source differs from `job.facts` before or after the copy.
    [[nodiscard]] std::error_code Stage(const FileJob& job, StagedFile& staged);

  private:
    [[nodiscard]] std::error_code copyInto(const FileJob& job, int source, const struct stat& before,
                                           TemporaryFile& copy);

    ByteCopier m_bytes;
    Attributes m_attributes;
    TemporaryFiles& m_temporaries;
};

#include "FileStager.h"
#include "EntryFacts.h"
#include "SystemError.h"

#include <fcntl.h>

namespace {

/// Smaller files are looked at once, after the copy; this look before it spares reading a large file in vain.
constexpr std::uint64_t kWorthALookBefore = std::uint64_t{64} * 1024;
constexpr std::int64_t kBlock = 512;

} // namespace

std::error_code FileStager::Stage(const FileJob& job, StagedFile& staged) {
    const int followLink = job.facts.isLink ? 0 : O_NOFOLLOW;
    const FileDescriptor source(::openat(job.source->Descriptor(), job.name.c_str(),
                                         O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | followLink));
    if (!source.IsOpen())
        return LastError();
    bool mayHaveHoles = false;
    if (job.facts.size >= kWorthALookBefore) {
        struct stat status {};
        if (::fstat(source.Get(), &status) != 0)
            return LastError();
        if (!IsUnchanged(job.facts, status))
            return ErrorOf(EAGAIN);
        mayHaveHoles = status.st_blocks * kBlock < status.st_size;
    }
    TemporaryFile copy;
    if (const std::error_code error = m_temporaries.Create(job.destination, job.facts.mode, copy))
        return error;
    if (const std::error_code error = copyInto(job, source.Get(), mayHaveHoles, copy))
        return error;
    staged.job = job;
    staged.copy = std::move(copy);
    return {};
}

std::error_code FileStager::copyInto(const FileJob& job, int source, bool mayHaveHoles, TemporaryFile& copy) {
    const std::error_code failure = m_bytes.Copy({.source = source,
                                                  .destination = copy.Descriptor(),
                                                  .size = job.facts.size,
                                                  .mayHaveHoles = mayHaveHoles,
                                                  .checkEnd = job.removeSource,
                                                  .sourceDevice = job.facts.id.device,
                                                  .destinationDevice = job.destination->Id().device});
    struct stat status {};
    if (::fstat(source, &status) != 0)
        return LastError();
    // A change explains a failure, and condemns a copy that met none.
    if (!IsUnchanged(job.facts, status))
        return ErrorOf(EAGAIN);
    if (failure)
        return failure;
    const bool hasMode = copy.HasFinalMode() && (status.st_mode & 07777U) == job.facts.mode;
    return m_attributes.CopyToFile(source, status, copy, hasMode);
}

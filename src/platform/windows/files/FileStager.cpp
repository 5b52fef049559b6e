#include "FileStager.h"
#include "EntryFacts.h"
#include "NtFile.h"
#include "SystemFiles.h"
#include "WindowsFolder.h"

namespace {
constexpr std::size_t chunk = std::size_t{1024} * 1024;
} // namespace

std::error_code FileStager::Stage(const FileJob& job, StagedFile& staged) {
    // Before it is followed: a link that is exchanged later leads to something else.
    EntryStatus entry{};
    if (const std::error_code error = SystemFiles::ReadStatus(*job.source, job.name, entry))
        return error;
    std::error_code error;
    const WinHandle source = NtFile::Open(HandleOf(*job.source), job.name,
                                          {.access = GENERIC_READ,
                                           .share = FILE_SHARE_READ | FILE_SHARE_DELETE,
                                           .links = NtFile::Links::Follow,
                                           .kind = NtFile::Kind::File},
                                          error);
    EntryStatus before{};
    if (!error)
        error = NtFile::ReadStatus(source.Get(), before);
    if (error)
        return error;
    const bool isLinkAsListed = job.facts.isLink == (entry.id != before.id);
    if (!isLinkAsListed || !SystemFiles::IsUnchanged(job.facts, before))
        return ErrorOf(EAGAIN);
    TemporaryFile copy;
    if (error = m_temporaries.Create(job.destination, copy); error)
        return error;
    const std::error_code failure = copyBytes(source.Get(), copy.Handle(), job.facts.size);
    EntryStatus after{};
    if (error = NtFile::ReadStatus(source.Get(), after); error)
        return error;
    // A changed source explains a failure, and makes a copy without one useless.
    if (!EntryFacts::IsSameContent(before, after))
        return ErrorOf(EAGAIN);
    error = failure ? failure : Attributes::CopyToFile(after, copy.Handle());
    if (error)
        return error;
    staged.sourceEntry = entry;
    staged.job = job;
    staged.copy = std::move(copy);
    return {};
}

std::error_code FileStager::copyBytes(HANDLE source, HANDLE copy, std::uint64_t size) {
    m_buffer.resize(chunk);
    std::uint64_t done = 0;
    for (;;) {
        DWORD count = 0;
        if (!ReadFile(source, m_buffer.data(), static_cast<DWORD>(chunk), &count, nullptr))
            return LastFileError();
        if (count == 0)
            return done == size ? std::error_code() : ErrorOf(EIO);
        DWORD written = 0;
        if (!WriteFile(copy, m_buffer.data(), count, &written, nullptr))
            return LastFileError();
        if (written != count)
            return FileError(ERROR_DISK_FULL);
        done += count;
        m_observer.Progress(count);
        if (m_observer.MustGiveUp())
            return ErrorOf(ECANCELED);
    }
}

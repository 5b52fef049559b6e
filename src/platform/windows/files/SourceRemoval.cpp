#include "SourceRemoval.h"
#include "EntryFacts.h"
#include "NtFile.h"
#include "SameBytes.h"
#include "SystemFiles.h"
#include "WindowsFolder.h"

namespace {

ReadBytes readerOf(HANDLE file) {
    return [file](std::uint64_t at, std::vector<char>& bytes) {
        LARGE_INTEGER place{};
        place.QuadPart = static_cast<LONGLONG>(at);
        if (!SetFilePointerEx(file, place, nullptr, FILE_BEGIN))
            return false;
        std::size_t filled = 0;
        for (DWORD count = 1; count > 0 && filled < bytes.size(); filled += count) {
            if (!ReadFile(file, bytes.data() + filled, static_cast<DWORD>(bytes.size() - filled), &count, nullptr))
                return false;
        }
        bytes.resize(filled);
        return true;
    };
}

/// While it is open nobody can write to it.
WinHandle openSource(const FileJob& job, DWORD access, std::error_code& error) {
    return NtFile::Open(HandleOf(*job.source), job.name,
                        {.access = access | DELETE | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES,
                         .share = FILE_SHARE_READ | FILE_SHARE_DELETE,
                         .kind = NtFile::Kind::File},
                        error);
}

/// After a change of rights or links alone, the bytes are still those of the copy.
bool hasBytesOfCopy(const StagedFile& file, const EntryStatus& entry, TransferObserver& observer) {
    std::error_code error;
    const WinHandle source = openSource(file.job, GENERIC_READ, error);
    EntryStatus now{};
    return !error && !NtFile::ReadStatus(source.Get(), now) && EntryFacts::IsSameContent(entry, now) &&
           HaveSameBytes(readerOf(source.Get()), readerOf(file.copy.Handle()), observer);
}

} // namespace

std::error_code RemoveSource(const StagedFile& file, TransferObserver& observer) {
    std::error_code error;
    const WinHandle source = openSource(file.job, 0, error);
    EntryStatus entry{};
    if (!error)
        error = NtFile::ReadStatus(source.Get(), entry);
    if (error)
        return error;
    // A link leaves nothing behind that only it holds: the file that it leads to stays.
    const bool isSame = EntryFacts::IsSameContent(file.sourceEntry, entry) ||
                        (!file.job.facts.isLink && SystemFiles::IsUnchanged(file.job.facts, entry) &&
                         hasBytesOfCopy(file, entry, observer));
    return isSame ? NtFile::Delete(source.Get(), true) : ErrorOf(EAGAIN);
}

bool RemoveSourceOfEqualFile(const FileJob& job, TransferObserver& observer) {
    std::error_code error;
    if (job.facts.isLink)
        return false;
    const WinHandle source = openSource(job, GENERIC_READ, error);
    if (error)
        return false;
    const WinHandle copy = NtFile::Open(HandleOf(*job.destination), job.name,
                                        {.access = GENERIC_READ | FILE_WRITE_DATA, // for the flush
                                         .share = FILE_SHARE_READ,
                                         .kind = NtFile::Kind::File},
                                        error);
    EntryStatus from{};
    EntryStatus to{};
    if (error || NtFile::ReadStatus(source.Get(), from) || NtFile::ReadStatus(copy.Get(), to) ||
        !SystemFiles::IsUnchanged(job.facts, from) || EntryFacts::KindOf(to) != EntryKind::File ||
        from.size != to.size || from.id == to.id)
        return false;
    return HaveSameBytes(readerOf(source.Get()), readerOf(copy.Get()), observer) && !NtFile::Flush(copy.Get()) &&
           !NtFile::Delete(source.Get(), true);
}

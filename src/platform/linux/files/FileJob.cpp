#include "FileJob.h"
#include "SystemCall.h"

#include <cstdio>
#include <fcntl.h>

std::error_code CheckDestination(const FileJob& job, DestinationState& state) {
    std::error_code error;
    const std::optional<FileFacts> existing = job.destination->Stat(job.name, error);
    state = DestinationState::Free;
    if (error || !existing)
        return error;
    switch (existing->kind) {
    case EntryKind::File:
        state = existing->id == job.facts.id ? DestinationState::IsSource : DestinationState::Replaceable;
        if (state == DestinationState::Replaceable && (!job.replaced || !job.replaced->IsSameAs(*existing)))
            return ErrorOf(EAGAIN);
        return {};
    case EntryKind::Folder:
        return ErrorOf(EISDIR);
    case EntryKind::FolderLink:
    case EntryKind::Special:
    case EntryKind::Unknown:
        break;
    }
    return ErrorOf(EEXIST);
}

std::error_code RenameToFreeName(const Folder& from, const char* oldName, const Folder& to,
                                 const std::filesystem::path& newName) {
    if (::renameat2(from.Descriptor(), oldName, to.Descriptor(), newName.c_str(), RENAME_NOREPLACE) == 0)
        return {};
    const std::error_code error = LastError();
    const bool isUnknown = error == ErrorOf(EINVAL) || error == ErrorOf(ENOSYS) || error == ErrorOf(EOPNOTSUPP);
    if (!isUnknown)
        return error;
    std::error_code lookError;
    if (to.Stat(newName, lookError))
        return ErrorOf(EEXIST);
    if (lookError)
        return lookError;
    return ::renameat(from.Descriptor(), oldName, to.Descriptor(), newName.c_str()) == 0 ? std::error_code()
                                                                                         : LastError();
}

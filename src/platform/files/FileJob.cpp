#include "FileJob.h"
#include "SystemCall.h"

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

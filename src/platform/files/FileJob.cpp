#include "FileJob.h"
#include "SystemCall.h"
#include "TemporaryFiles.h"

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

std::error_code KeepReplaced(Trash* trash, const FileJob& job, Trash::KeptFile& kept) {
    if (trash == nullptr || !job.replaced || job.replaced->id == FileId{})
        return {};
    DestinationState state{};
    const std::error_code error = CheckDestination(job, state);
    return error || state != DestinationState::Replaceable
               ? error
               : trash->KeepReplaced(*job.destination, job.name, job.facts, kept);
}

std::error_code TemporaryFiles::Place(TemporaryFile& file, const FileJob& job, bool& placed) {
    std::error_code error = PlaceAtFreeName(file, job.name);
    placed = !error;
    if (error == std::errc::file_exists) {
        DestinationState state{};
        error = CheckDestination(job, state);
        if (!error && state != DestinationState::IsSource) {
            error = Replace(file, job.name);
            placed = !error;
        }
    }
    if (!placed)
        file.Discard();
    else if (!job.removeSource) // nothing looks at the copy again, and somebody may want to replace it
        file.CloseFile();
    return error;
}

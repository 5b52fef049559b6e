#include "DiskSync.h"
#include "NtFile.h"

void DiskSync::SyncContents(std::vector<StagedFile>& files, const SyncPoints& /*points*/) {
    for (StagedFile& file : files)
        file.error = NtFile::Flush(file.copy.Handle());
}

void DiskSync::SyncNames(std::vector<StagedFile>& files, std::vector<StagedFolder>& /*folders*/,
                         const SyncPoints& /*points*/) {
    for (StagedFile& file : files) {
        if (file.isPlaced && file.job.removeSource)
            file.error = NtFile::Flush(file.copy.Handle());
    }
}

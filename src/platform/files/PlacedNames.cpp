#include "PlacedNames.h"
#include "DiskSync.h"

#include <algorithm>

namespace {
/// Up to this many folders, syncing each is cheaper than syncing the whole file system.
constexpr std::size_t fewFolders = 4;
} // namespace

void PlacedNames::Add(const std::shared_ptr<Folder>& folder) {
    Device& device = m_devices[folder->Id().device];
    if (device.hasMore || std::any_of(device.folders.begin(), device.folders.end(),
                                      [&](const auto& known) { return known->Id() == folder->Id(); }))
        return;
    if (device.folders.size() < fewFolders)
        device.folders.push_back(folder);
    else
        device.hasMore = true;
}

std::vector<PlacedNames::Failure> PlacedNames::Sync() const {
    std::vector<Failure> failures;
    const auto sync = [&failures](const Folder& folder, NamesOf which) {
        if (const std::error_code error = SyncNewNames(folder, which))
            failures.push_back({folder.Path(), error});
    };
    for (const auto& [id, device] : m_devices) {
        if (device.hasMore)
            sync(*device.folders.front(), NamesOf::FileSystem);
        else
            for (const std::shared_ptr<Folder>& folder : device.folders)
                sync(*folder, NamesOf::Folder);
    }
    return failures;
}

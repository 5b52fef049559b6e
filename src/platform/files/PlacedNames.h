// The folders in which files have taken names that may not be on disk yet. Holds a few of them open for each device.
// Syncing the bytes of a copy does not sync its name: a run that says nothing must not lose it to a disk that breaks.
#pragma once

#include "Folder.h"

#include <map>

class PlacedNames final {
  public:
    /// A name in this folder has been made, replaced or removed.
    void Add(const std::shared_ptr<Folder>& folder);

    [[nodiscard]] bool IsEmpty() const { return m_devices.empty(); }

    struct Failure {
        std::filesystem::path folder;
        std::error_code error;
    };
    /// Brings all of them to disk. The names below a folder that failed may be lost.
    [[nodiscard]] std::vector<Failure> Sync() const;

  private:
    struct Device {
        std::vector<std::shared_ptr<Folder>> folders;
        bool hasMore = false; ///< folders that are not held open: the whole file system has to be synced
    };
    std::map<std::uint64_t, Device> m_devices;
};

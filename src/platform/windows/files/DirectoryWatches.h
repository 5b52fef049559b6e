// Watches folders with ReadDirectoryChangesW, each in a thread of its own. A thread that a dead drive holds is left
// behind.
#pragma once

#include "FolderWatch.h"

class DirectoryWatches final : public FolderWatches {
  public:
    std::unique_ptr<FolderWatch> Begin(const WatchOrder& order) override;
};

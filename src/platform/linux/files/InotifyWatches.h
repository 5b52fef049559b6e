// Watches folders with inotify(7), each in a thread of its own. A thread that a dead drive holds is left behind.
#pragma once

#include "FolderWatch.h"

class InotifyWatches final : public FolderWatches {
  public:
    std::unique_ptr<FolderWatch> Begin(const WatchOrder& order) override;
};

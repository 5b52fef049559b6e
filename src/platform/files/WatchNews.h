// What a watching thread has to tell, until somebody takes it. Shared by the two; every operation may be called from
// either thread.
#pragma once

#include "FolderWatch.h"

#include <mutex>

class WatchNews final {
  public:
    /// A change of the entry `name` in `folder`. The program's own temporary files and its trash are passed over.
    void Changed(const std::filesystem::path& folder, const std::filesystem::path& name);
    void Anything();
    void Ended(WatchEnd end, std::error_code error = {});
    [[nodiscard]] FolderWatch::News Take();

  private:
    std::mutex m_mutex;
    FolderWatch::News m_news;
};

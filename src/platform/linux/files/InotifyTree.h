// The inotify instance of one watched folder: a watch for each sub-folder, which come and go with them. Owns the
// descriptor; closing it ends all its watches. What it cannot watch it reports as the end of the whole.
#pragma once

#include "FileFacts.h"
#include "FolderWatch.h"
#include "SystemCall.h"

#include <functional>
#include <unordered_map>

class WatchNews;

class InotifyTree final {
  public:
    /// `isOver` is asked before each folder.
    InotifyTree(const WatchOrder& order, WatchNews& news, std::function<bool()> isOver);

    /// Watches the root and everything below. False when it has ended, with the end told.
    [[nodiscard]] bool Begin();

    /// Readable when there are events.
    [[nodiscard]] int Descriptor() const { return m_inotify.Get(); }

    /// Tells what has happened. False when it has ended.
    [[nodiscard]] bool Read();

    /// True when events were lost: new folders among them are not watched until LookAgain.
    [[nodiscard]] bool HasLostSight() const { return m_hasLostSight; }
    [[nodiscard]] bool LookAgain();

    /// False, with the end told, when the path does not lead to the watched folder any more.
    [[nodiscard]] bool StillThere();

  private:
    [[nodiscard]] bool end(WatchEnd end, std::error_code error = {});
    [[nodiscard]] bool addTree(const std::filesystem::path& path, int depth);
    [[nodiscard]] bool addFolder(const std::filesystem::path& path, int folder, int depth);
    [[nodiscard]] bool handle(int watch, std::uint32_t mask, const char* name);
    void forgetTree(const std::filesystem::path& path);

    const WatchOrder& m_order;
    WatchNews& m_news;
    std::function<bool()> m_isOver;
    FileDescriptor m_inotify;
    FileId m_rootId;
    int m_root = -1;
    std::set<FileId> m_leftOut;
    std::set<std::uint64_t> m_localDevices;
    std::unordered_map<int, std::filesystem::path> m_paths; ///< by watch
    bool m_hasLostSight = false;
};

#include "InotifyTree.h"
#include "LinuxFolder.h"
#include "TemporaryName.h"
#include "WatchNews.h"

#include <array>
#include <fcntl.h>
#include <sys/inotify.h>
#include <tuple>

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t changes = IN_CREATE | IN_MOVED_TO | IN_CLOSE_WRITE | IN_MODIFY | IN_ATTRIB;
constexpr std::uint32_t removals = IN_DELETE | IN_MOVED_FROM;
constexpr std::uint32_t selfGone = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT;
constexpr std::size_t readAtOnce = 65536; // bytes

FileDescriptor openFolder(int at, const char* name, int flags) {
    return FileDescriptor(::openat(at, name, O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC | flags));
}

std::optional<FileId> idOf(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? std::optional(IdOf(status)) : std::nullopt;
}

/// The names of sub-folders, and of entries whose kind the file system does not tell. What cannot be read has none: a
/// run says so.
std::vector<std::string> subfoldersOf(int folder) {
    std::vector<std::string> names;
    std::ignore = ForEachEntry(folder, [&names](const struct dirent64& entry) {
        if (entry.d_type == DT_DIR || entry.d_type == DT_UNKNOWN)
            names.emplace_back(static_cast<const char*>(entry.d_name));
        return std::error_code();
    });
    return names;
}

bool isAtOrBelow(const fs::path& path, const fs::path& folder) {
    const std::string& text = path.native();
    const std::string& start = folder.native();
    return text.starts_with(start) && (text.size() == start.size() || text[start.size()] == '/');
}

} // namespace

InotifyTree::InotifyTree(const WatchOrder& order, WatchNews& news, std::function<bool()> isOver)
    : m_order(order), m_news(news), m_isOver(std::move(isOver)), m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

bool InotifyTree::end(WatchEnd end, std::error_code error) {
    m_news.Ended(end, error);
    return false;
}

bool InotifyTree::Begin() {
    if (!m_inotify.IsOpen()) {
        const std::error_code error = LastError();
        return end(error == std::errc::too_many_files_open ? WatchEnd::LimitReached : WatchEnd::Failed, error);
    }
    for (const fs::path& path : m_order.leftOut)
        if (const std::optional<FileId> id = idOf(path))
            m_leftOut.insert(*id);
    const FileDescriptor root = openFolder(AT_FDCWD, m_order.folder.c_str(), 0);
    struct stat status {};
    if (!root.IsOpen() || ::fstat(root.Get(), &status) != 0)
        return end(WatchEnd::Gone);
    m_rootId = IdOf(status);
    return LookAgain();
}

bool InotifyTree::LookAgain() {
    m_hasLostSight = false;
    if (!addTree(m_order.folder, 0))
        return false;
    m_news.Anything();
    return true;
}

bool InotifyTree::StillThere() {
    return idOf(m_order.folder) == m_rootId || end(WatchEnd::Gone);
}

/// Goes down by descriptors, so that paths may be longer than the system takes.
bool InotifyTree::addTree(const fs::path& path, int depth) {
    const FileDescriptor folder = openFolder(AT_FDCWD, path.c_str(), path == m_order.folder ? 0 : O_NOFOLLOW);
    return !folder.IsOpen() || addFolder(path, folder.Get(), depth);
}

bool InotifyTree::addFolder(const fs::path& path, int folder, int depth) {
    struct stat status {};
    if (m_isOver() || depth > Folder::MostLevels || ::fstat(folder, &status) != 0 || m_leftOut.contains(IdOf(status)))
        return true;
    if (!m_localDevices.contains(status.st_dev)) {
        if (DriveOf(folder).isNetwork)
            return end(WatchEnd::NetworkFolder);
        m_localDevices.insert(status.st_dev);
    }
    // The descriptor's own path: the folder may have been renamed since it was opened.
    const std::string handle = "/proc/self/fd/" + std::to_string(folder);
    const int watch = ::inotify_add_watch(m_inotify.Get(), handle.c_str(), changes | removals | selfGone | IN_ONLYDIR);
    if (watch < 0) {
        const std::error_code error = LastError();
        const bool isLimit = error == std::errc::no_space_on_device || error == std::errc::not_enough_memory;
        return end(isLimit ? WatchEnd::LimitReached : WatchEnd::Failed, error);
    }
    m_paths[watch] = path;
    if (depth == 0 && path == m_order.folder)
        m_root = watch;
    if (!m_order.hasSubfolders)
        return true;
    // Listed after the watch is there: what is made from now on is told.
    for (const std::string& name : subfoldersOf(folder)) {
        if (name == TrashName)
            continue;
        const FileDescriptor inner = openFolder(folder, name.c_str(), O_NOFOLLOW);
        if (inner.IsOpen() && !addFolder(path / name, inner.Get(), depth + 1))
            return false;
    }
    return true;
}

/// They would go on telling of it at its new place.
void InotifyTree::forgetTree(const fs::path& path) {
    std::erase_if(m_paths, [&](const auto& known) {
        const bool isMeant = known.first != m_root && isAtOrBelow(known.second, path);
        if (isMeant)
            ::inotify_rm_watch(m_inotify.Get(), known.first);
        return isMeant;
    });
}

bool InotifyTree::Read() {
    alignas(struct inotify_event) std::array<char, readAtOnce> buffer{};
    for (;;) {
        const ssize_t length = ::read(m_inotify.Get(), buffer.data(), buffer.size());
        if (length <= 0)
            return length == 0 || errno == EAGAIN || errno == EINTR || end(WatchEnd::Failed, LastError());
        for (ssize_t at = 0; at < length;) {
            const auto* event = reinterpret_cast<const struct inotify_event*>(buffer.data() + at);
            at += static_cast<ssize_t>(sizeof(struct inotify_event) + event->len);
            if (!handle(event->wd, event->mask, event->len > 0 ? static_cast<const char*>(event->name) : ""))
                return false;
        }
        if (m_isOver())
            return true;
    }
}

bool InotifyTree::handle(int watch, std::uint32_t mask, const char* name) {
    if ((mask & IN_Q_OVERFLOW) != 0) {
        m_hasLostSight = true;
        m_news.Anything();
        return true;
    }
    const auto known = m_paths.find(watch);
    if (known == m_paths.end())
        return true;
    if (watch == m_root && (mask & (selfGone | IN_IGNORED)) != 0)
        return end(WatchEnd::Gone);
    if ((mask & IN_IGNORED) != 0) {
        m_paths.erase(known);
        return true;
    }
    if (*name == '\0' || ((mask & removals) != 0 && !m_order.tellsRemovals && (mask & IN_ISDIR) == 0))
        return true;
    const fs::path folder = known->second;
    const bool isFolder = (mask & IN_ISDIR) != 0;
    if (isFolder && (mask & IN_ATTRIB) != 0) // no run looks at it
        return true;
    if ((mask & changes) != 0 || m_order.tellsRemovals)
        m_news.Changed(folder, name);
    if (!isFolder || !m_order.hasSubfolders || std::string_view(name) == TrashName)
        return true;
    if ((mask & IN_MOVED_FROM) != 0)
        forgetTree(folder / name);
    return (mask & (IN_CREATE | IN_MOVED_TO)) == 0 || addTree(folder / name, 1);
}

#include "DirectoryWatches.h"
#include "SystemCall.h"
#include "TemporaryName.h"
#include "WatchNews.h"
#include "WindowsFolder.h"
#include "WindowsName.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <string_view>
#include <thread>

namespace {

namespace fs = std::filesystem;

constexpr DWORD filter = FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_ATTRIBUTES |
                         FILE_NOTIFY_CHANGE_SIZE | FILE_NOTIFY_CHANGE_LAST_WRITE | FILE_NOTIFY_CHANGE_CREATION;
constexpr DWORD lookInterval = 60'000; ///< ms; how often it is asked whether the path still leads to the folder

/// What the thread shares with its owner; the last of the two frees it.
struct Shared {
    explicit Shared(WatchOrder what) : order(std::move(what)), wake(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    const WatchOrder order;
    WatchNews news;
    std::atomic<bool> isOver = false;
    WinHandle wake;
};

WinHandle open(const fs::path& folder) {
    return WinHandle(CreateFileW(WindowsName::Extended(folder).c_str(), FILE_LIST_DIRECTORY,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                 FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED, nullptr));
}

class DirectoryTree final {
  public:
    explicit DirectoryTree(Shared& shared) : m_shared(shared), m_event(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    DirectoryTree(const DirectoryTree&) = delete;
    DirectoryTree& operator=(const DirectoryTree&) = delete;
    /// The system writes into the buffer until its request has ended.
    ~DirectoryTree() {
        DWORD length = 0;
        if (m_isAsking && CancelIoEx(m_folder.Get(), &m_request))
            GetOverlappedResult(m_folder.Get(), &m_request, &length, TRUE);
    }

    void Run() {
        std::error_code error;
        m_root = WindowsFolder::Open(m_shared.order.folder, error);
        m_folder = open(m_shared.order.folder);
        if (!m_root || !m_folder.IsOpen())
            return m_shared.news.Ended(WatchEnd::Gone);
        if (m_root->Drive().isNetwork)
            return m_shared.news.Ended(WatchEnd::NetworkFolder);
        if (!ask())
            return;
        m_shared.news.Anything();
        while (!m_shared.isOver && wait()) {
        }
    }

  private:
    bool fail() {
        const std::error_code error = LastFileError();
        m_shared.news.Ended(m_root->StillThere() ? WatchEnd::Failed : WatchEnd::Gone, error);
        return false;
    }
    bool ask() {
        m_request = {};
        m_request.hEvent = m_event.Get();
        m_isAsking = ReadDirectoryChangesW(m_folder.Get(), m_buffer.data(), static_cast<DWORD>(m_buffer.size()),
                                           m_shared.order.hasSubfolders ? TRUE : FALSE, filter, nullptr, &m_request,
                                           nullptr) != 0;
        return m_isAsking || fail();
    }
    /// False when the watch has ended.
    bool wait() {
        const std::array<HANDLE, 2> handles{m_event.Get(), m_shared.wake.Get()};
        const DWORD ready =
            WaitForMultipleObjects(static_cast<DWORD>(handles.size()), handles.data(), FALSE, lookInterval);
        if (ready == WAIT_TIMEOUT && !m_root->StillThere()) {
            m_shared.news.Ended(WatchEnd::Gone);
            return false;
        }
        if (ready != WAIT_OBJECT_0)
            return ready == WAIT_TIMEOUT;
        DWORD length = 0;
        m_isAsking = false;
        if (!GetOverlappedResult(m_folder.Get(), &m_request, &length, FALSE))
            return fail();
        if (length == 0) // more has happened than the buffer holds
            m_shared.news.Anything();
        else
            tell();
        return ask();
    }
    void tell() {
        for (const char* at = m_buffer.data();;) {
            const auto* change = reinterpret_cast<const FILE_NOTIFY_INFORMATION*>(at);
            const std::wstring_view name(static_cast<const wchar_t*>(change->FileName),
                                         change->FileNameLength / sizeof(wchar_t));
            const bool isRemoval =
                change->Action == FILE_ACTION_REMOVED || change->Action == FILE_ACTION_RENAMED_OLD_NAME;
            if (!isRemoval || m_shared.order.tellsRemovals)
                tell(fs::path(name), change->Action == FILE_ACTION_MODIFIED);
            if (change->NextEntryOffset == 0)
                return;
            at += change->NextEntryOffset;
        }
    }
    void tell(const fs::path& name, bool isModified) {
        const fs::path path = m_shared.order.folder / name;
        const auto holds = [&](const fs::path& folder) {
            const std::wstring& start = folder.native();
            return path.native().size() >= start.size() &&
                   CompareStringOrdinal(path.c_str(), static_cast<int>(start.size()), start.c_str(),
                                        static_cast<int>(start.size()), TRUE) == CSTR_EQUAL &&
                   (path.native().size() == start.size() || path.native()[start.size()] == L'\\');
        };
        const std::vector<fs::path>& leftOut = m_shared.order.leftOut;
        if (std::any_of(leftOut.begin(), leftOut.end(), holds))
            return;
        const DWORD attributes = isModified ? GetFileAttributesW(WindowsName::Extended(path).c_str()) : 0;
        if (isModified && attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            return; // an entry of it was changed, which is told by itself
        // What lies in the trash is no more to tell of than the trash itself.
        for (const fs::path& part : name.parent_path())
            if (part == TrashName)
                return;
        m_shared.news.Changed(path.parent_path(), path.filename());
    }

    Shared& m_shared;
    std::shared_ptr<WindowsFolder> m_root; ///< to know it again
    WinHandle m_folder;                    ///< its changes are read by
    WinHandle m_event;
    OVERLAPPED m_request{};
    bool m_isAsking = false;
    alignas(DWORD) std::array<char, 65536> m_buffer{};
};

class DirectoryWatch final : public FolderWatch {
  public:
    explicit DirectoryWatch(const WatchOrder& order) : m_shared(std::make_shared<Shared>(order)) {
        try {
            std::thread([shared = m_shared] { std::make_unique<DirectoryTree>(*shared)->Run(); }).detach();
        } catch (const std::system_error& error) {
            m_shared->news.Ended(WatchEnd::Failed, error.code());
        }
    }
    ~DirectoryWatch() override {
        m_shared->isOver = true;
        SetEvent(m_shared->wake.Get());
    }
    DirectoryWatch(const DirectoryWatch&) = delete;
    DirectoryWatch& operator=(const DirectoryWatch&) = delete;

    News Take() override { return m_shared->news.Take(); }

  private:
    std::shared_ptr<Shared> m_shared;
};

} // namespace

std::unique_ptr<FolderWatch> DirectoryWatches::Begin(const WatchOrder& order) {
    return std::make_unique<DirectoryWatch>(order);
}

#include "InotifyWatches.h"
#include "InotifyTree.h"
#include "WatchNews.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <poll.h>
#include <sys/eventfd.h>
#include <thread>
#include <tuple>

namespace {

using std::chrono::steady_clock;
using namespace std::chrono_literals;

/// How often it is asked whether the path still leads to the folder: another may have been mounted over it.
constexpr steady_clock::duration lookInterval = 60s;

/// What the thread shares with its owner; the last of the two frees it.
struct Shared {
    explicit Shared(WatchOrder what) : order(std::move(what)), wake(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}
    const WatchOrder order;
    WatchNews news;
    std::atomic<bool> isOver = false;
    FileDescriptor wake;
};

/// False when the watch has ended.
bool wait(InotifyTree& tree, const Shared& shared, steady_clock::duration longest) {
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(longest).count();
    std::array<struct pollfd, 2> polled{{{tree.Descriptor(), POLLIN, 0}, {shared.wake.Get(), POLLIN, 0}}};
    const int ready = ::poll(polled.data(), polled.size(), static_cast<int>(std::max<std::int64_t>(milliseconds, 0)));
    return ready == 0 ? tree.StillThere() : tree.Read();
}

void run(Shared& shared) {
    InotifyTree tree(shared.order, shared.news, [&shared] { return shared.isOver.load(); });
    if (!tree.Begin())
        return;
    // After events were lost the whole tree is walked; where they are lost all the time it is not walked all the time.
    auto nextLook = steady_clock::now();
    while (!shared.isOver) {
        if (!wait(tree, shared, tree.HasLostSight() ? nextLook - steady_clock::now() : lookInterval))
            return;
        const auto begun = steady_clock::now();
        if (!tree.HasLostSight() || begun < nextLook)
            continue;
        if (!tree.LookAgain())
            return;
        const auto ended = steady_clock::now();
        nextLook = ended + 1s + 4 * (ended - begun);
    }
}

class InotifyWatch final : public FolderWatch {
  public:
    explicit InotifyWatch(const WatchOrder& order) : m_shared(std::make_shared<Shared>(order)) {
        const BlockedSignals noSignals;
        try {
            std::thread([shared = m_shared] { run(*shared); }).detach();
        } catch (const std::system_error& error) {
            m_shared->news.Ended(WatchEnd::Failed, error.code());
        }
    }
    ~InotifyWatch() override {
        m_shared->isOver = true;
        std::ignore = ::eventfd_write(m_shared->wake.Get(), 1);
    }
    InotifyWatch(const InotifyWatch&) = delete;
    InotifyWatch& operator=(const InotifyWatch&) = delete;

    News Take() override { return m_shared->news.Take(); }

  private:
    std::shared_ptr<Shared> m_shared;
};

} // namespace

std::unique_ptr<FolderWatch> InotifyWatches::Begin(const WatchOrder& order) {
    return std::make_unique<InotifyWatch>(order);
}

#include "WatchNews.h"
#include "TemporaryName.h"

#include <utility>

namespace {
/// Beyond that nobody looks at each.
constexpr std::size_t mostNamed = 64;
} // namespace

void WatchNews::Changed(const std::filesystem::path& folder, const std::filesystem::path& name) {
    const auto text = name.u8string();
    const std::string_view plain(reinterpret_cast<const char*>(text.data()), text.size());
    if (plain == TrashName || MakerOfTemporary(plain))
        return;
    const std::lock_guard lock(m_mutex);
    if (m_news.isAnything)
        return;
    m_news.changed.insert(folder / name);
    m_news.isAnything = m_news.changed.size() > mostNamed;
}

void WatchNews::Anything() {
    const std::lock_guard lock(m_mutex);
    m_news.isAnything = true;
}

void WatchNews::Ended(WatchEnd end, std::error_code error) {
    const std::lock_guard lock(m_mutex);
    m_news.end = end;
    m_news.error = error;
}

FolderWatch::News WatchNews::Take() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_news, {});
}

#include "KeyState.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <vector>
#include <xcb/xcb.h>

namespace {

constexpr xcb_keysym_t keysymF8 = 0xffc5;

struct Free {
    void operator()(void* reply) const { std::free(reply); } // replies come from the library's malloc
};
template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, Free>;

/// The key as the X server sees it. Has a connection of its own, so it needs no window and disturbs no event queue.
/// When the server is gone the key counts as up.
class X11KeyState final : public KeyState {
  public:
    /// Connects to the server that DISPLAY names. Null when there is none or its keyboard has no F8.
    [[nodiscard]] static std::unique_ptr<X11KeyState> Open();

    [[nodiscard]] bool IsF8Down() const override;

  private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

    X11KeyState(Connection connection, std::vector<xcb_keycode_t> keys);
    [[nodiscard]] static std::vector<xcb_keycode_t> keycodesOfF8(xcb_connection_t* connection);

    Connection m_connection;
    std::vector<xcb_keycode_t> m_keys;
};

X11KeyState::X11KeyState(Connection connection, std::vector<xcb_keycode_t> keys)
    : m_connection(std::move(connection)), m_keys(std::move(keys)) {}

std::unique_ptr<X11KeyState> X11KeyState::Open() {
    Connection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return nullptr;
    std::vector<xcb_keycode_t> keys = keycodesOfF8(connection.get());
    if (keys.empty())
        return nullptr;
    return std::unique_ptr<X11KeyState>(new X11KeyState(std::move(connection), std::move(keys)));
}

std::vector<xcb_keycode_t> X11KeyState::keycodesOfF8(xcb_connection_t* connection) {
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection, setup->min_keycode, count);
    const ReplyPtr<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(connection, cookie, nullptr));
    std::vector<xcb_keycode_t> keys;
    if (!reply || reply->keysyms_per_keycode == 0)
        return keys;
    const std::span symbols(xcb_get_keyboard_mapping_keysyms(reply.get()),
                            static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(reply.get())));
    const std::size_t perKey = reply->keysyms_per_keycode;
    for (std::size_t key = 0; (key + 1) * perKey <= symbols.size(); ++key) {
        if (symbols[key * perKey] == keysymF8)
            keys.push_back(static_cast<xcb_keycode_t>(setup->min_keycode + key));
    }
    return keys;
}

bool X11KeyState::IsF8Down() const {
    const auto cookie = xcb_query_keymap(m_connection.get());
    const ReplyPtr<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(m_connection.get(), cookie, nullptr));
    if (!reply)
        return false;
    return std::any_of(m_keys.begin(), m_keys.end(),
                       [&](xcb_keycode_t key) { return (reply->keys[key / 8] >> (key % 8) & 1) != 0; });
}

} // namespace

std::unique_ptr<KeyState> MakeNativeKeyState(const QString& plugin) {
    // A compositor's X server knows only the keys of X windows, so it is asked only where our windows are X windows.
    return plugin == u"xcb" ? X11KeyState::Open() : nullptr;
}

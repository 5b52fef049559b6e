// The F8 key as the X server sees it. Owns a connection of its own, so it needs no window and disturbs no event queue.
// A lost server reads as "not held".
#pragma once

#include "KeyState.h"
#include <memory>
#include <vector>
#include <xcb/xcb.h>

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

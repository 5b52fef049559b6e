// Whether the key that aborts a running action is held down. Never fails; false where no key can be seen.
#pragma once

#include <memory>

class KeyState {
  public:
    virtual ~KeyState() = default;

    [[nodiscard]] virtual bool IsF8Down() const = 0;
};

/// Asks the display system, whichever window has the focus. Null when this system cannot be asked or its display cannot
/// be reached. Programs with windows only: it is in a library of its own, kalvenor_nativekeys.
[[nodiscard]] std::unique_ptr<KeyState> MakeNativeKeyState();

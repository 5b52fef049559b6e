// Whether the key that aborts a running action is held down. Never fails; false where no key can be seen.
#pragma once

#include <QString>
#include <memory>

class KeyState {
  public:
    virtual ~KeyState() = default;

    [[nodiscard]] virtual bool IsF8Down() const = 0;
};

/// Asks the display system, whichever window has the focus. Null when the one that `plugin` (Qt's name of it) shows our
/// windows on cannot be asked or reached. Programs with windows only: it is in a library of its own,
/// kalvenor_nativekeys.
[[nodiscard]] std::unique_ptr<KeyState> MakeNativeKeyState(const QString& plugin);

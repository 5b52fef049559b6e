// Whether the key that aborts a running action is held down right now. Never fails; false where no key can be seen.
#pragma once

class KeyState {
  public:
    virtual ~KeyState() = default;

    [[nodiscard]] virtual bool IsF8Down() const = 0;
};

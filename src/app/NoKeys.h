// The keyboard of a program without a window: no key is ever held.
#pragma once

#include "KeyState.h"

class NoKeys final : public KeyState {
  public:
    [[nodiscard]] bool IsF8Down() const override { return false; }
};

// Asks the display system which keys are held down, whichever window has the focus.
#pragma once

#include "KeyState.h"
#include <memory>

/// Null when this system has no way to ask, or its display cannot be reached.
[[nodiscard]] std::unique_ptr<KeyState> MakeNativeKeyState();

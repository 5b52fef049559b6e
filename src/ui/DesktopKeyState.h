// The F8 key as this desktop lets a program see it: asked of the display system where that works, else taken from the
// key events of the program's own windows. Where neither sees the key it reads as "not held".
#pragma once

#include "KeyState.h"
#include <memory>

class QGuiApplication;

/// Not null. The application must outlive the result.
[[nodiscard]] std::unique_ptr<KeyState> MakeDesktopKeyState(QGuiApplication& application);

// Chooses how the F8 key is seen on this desktop: asked of the display system where that can be done, else from the key
// events of the program's own windows.
#pragma once

#include "KeyState.h"
#include <memory>

class QGuiApplication;

/// Never null. The application must outlive the result.
[[nodiscard]] std::unique_ptr<KeyState> MakeDesktopKeyState(QGuiApplication& application);

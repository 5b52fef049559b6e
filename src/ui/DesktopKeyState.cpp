#include "DesktopKeyState.h"

#include "KeyState.h"
#include "WindowKeyState.h"
#include <QGuiApplication>

std::unique_ptr<KeyState> MakeDesktopKeyState(QGuiApplication& application) {
    // A compositor's X server knows only the keys of X windows, so it is asked only where our windows are X windows.
    if (QGuiApplication::platformName() == QLatin1String("xcb")) {
        if (auto native = MakeNativeKeyState())
            return native;
    }
    return std::make_unique<WindowKeyState>(application);
}

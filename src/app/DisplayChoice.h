// Whether a window would be seen by anybody. Pure; never fails.
#pragma once

#include <QString>

/// What the environment says about the display.
struct DisplayFacts {
    QString display;        ///< DISPLAY
    QString waylandDisplay; ///< WAYLAND_DISPLAY
    QString platformPlugin; ///< the platform plug-in asked for, "name" or "name:options", several joined with ";"
};

[[nodiscard]] DisplayFacts ReadDisplayFacts();

/// False without a display server, and for platform plug-ins that draw into memory only. A plug-in that brings its own
/// screen (a frame buffer, a remote desktop) needs no server.
[[nodiscard]] bool ShowsWindows(const DisplayFacts& facts);

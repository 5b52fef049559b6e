// Whether a window would be seen by anybody. Pure; never fails.
#pragma once

#include "Session.h"

/// False without a display server, and for platform plug-ins that draw into memory only. A plug-in that brings its own
/// screen (a frame buffer, a remote desktop) needs no server.
[[nodiscard]] bool ShowsWindows(const DisplayFacts& facts);

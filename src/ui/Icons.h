// The program's pictures, drawn at every size they are asked in, so that they stay sharp. Their colours are readable on
// light and on dark panels. Free functions, no failure.
#pragma once

#include <QIcon>

namespace Icons {

enum class Picture {
    None,
    Idle,
    Monitoring,
    Failed,
    Start,
    Stop,
    RunNow,
    RunMarked,
    Refresh,
    Exit,
    Add,
    Delete,
    Import,
    Export,
    Settings,
    Log,
    Search,
    Folder,
    Properties,
    Help,
    SystemInfo
};

[[nodiscard]] QIcon Icon(Picture picture);

} // namespace Icons

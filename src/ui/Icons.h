// The program's pictures, drawn at every size in use while building, so that they stay sharp. Their colours are
// readable on light and on dark panels.
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
    SystemInfo,
    Preview,
    ResultNone,
    ResultRunning,
    ResultFine,
    ResultFailed,
    ResultEarly
};

[[nodiscard]] QIcon Icon(Picture picture);

} // namespace Icons

// The program's pictures, drawn at every size they are asked in, so that they stay sharp. Free functions, no failure.
#pragma once

#include <QIcon>

namespace Icons {

enum class Picture { Idle, Monitoring, Start, Stop, RunNow, RunMarked, Refresh, Exit };

[[nodiscard]] QIcon Icon(Picture picture);

} // namespace Icons

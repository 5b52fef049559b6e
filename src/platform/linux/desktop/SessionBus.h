// Whether the session has a bus. Asked before the bus is: without an address its library would start one of its own.
#pragma once

#include <QFileInfo>

[[nodiscard]] inline bool HasSessionBus() {
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

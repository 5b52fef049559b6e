// The calls of the system's socket library, by one name on each system.
#pragma once

#include <netdb.h>
#include <sys/socket.h>

/// Must live while the calls are used. It is always there.
class SocketLibrary final {
  public:
    SocketLibrary() {} // NOLINT(modernize-use-equals-default): a plain value would pass for unused
};

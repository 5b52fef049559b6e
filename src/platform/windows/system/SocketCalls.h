// The calls of the system's socket library, by one name on each system.
#pragma once

#include <winsock2.h>

#include <ws2tcpip.h>

/// Must live while the calls are used. Counted by the system; a look-up may come before Qt's first socket.
class SocketLibrary final {
  public:
    SocketLibrary() : m_started(WSAStartup(MAKEWORD(2, 2), &m_data) == 0) {}
    ~SocketLibrary() {
        if (m_started)
            WSACleanup();
    }
    SocketLibrary(const SocketLibrary&) = delete;
    SocketLibrary& operator=(const SocketLibrary&) = delete;

  private:
    WSADATA m_data{};
    bool m_started;
};

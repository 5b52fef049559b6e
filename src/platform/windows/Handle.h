// Owns one handle of the system and closes it. INVALID_HANDLE_VALUE counts as none, like null.
#pragma once

#include <memory>
#include <system_error>
#include <windows.h>

#undef DeleteFile // also an operation of Folder

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

class WinHandle final {
  public:
    WinHandle() = default;
    explicit WinHandle(HANDLE handle) : m_handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}

    [[nodiscard]] bool IsOpen() const { return m_handle != nullptr; }
    [[nodiscard]] HANDLE Get() const { return m_handle.get(); }

  private:
    std::unique_ptr<HANDLE, HandleCloser> m_handle;
};

/// Of the system call just made.
[[nodiscard]] inline std::error_code LastError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

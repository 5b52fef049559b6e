// The computer's clock and its dial-up line on Windows.
#pragma once

#include "Machine.h"
#include <windows.h>

/// Sets the clock with SetSystemTime, to the whole second; this needs the right to change the system time.
class WindowsSystemClock final : public SystemClock {
  public:
    /// `setTime` is the system call.
    using SetTime = BOOL(WINAPI*)(const SYSTEMTIME*);
    explicit WindowsSystemClock(SetTime setTime = &SetSystemTime) : m_setTime(setTime) {}

    void Set(std::chrono::system_clock::time_point time, Outcome outcome) override;

  private:
    SetTime m_setTime;
};

/// Looks at the connections of the remote access service.
class WindowsDialUp final : public DialUp {
  public:
    [[nodiscard]] bool IsActive() const override;
};

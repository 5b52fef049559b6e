// Sets the clock with SetSystemTime, to the whole second; it takes the right to change the system time. Owns nothing.
#pragma once

#include "SystemClock.h"
#include <windows.h>

class WindowsSystemClock final : public SystemClock {
  public:
    /// `setTime` is the system call.
    using SetTime = BOOL(WINAPI*)(const SYSTEMTIME*);
    explicit WindowsSystemClock(SetTime setTime = &SetSystemTime) : m_setTime(setTime) {}

    void Set(std::chrono::system_clock::time_point time, Outcome outcome) override;

  private:
    SetTime m_setTime;
};

// Sets the clock with clock_settime(2) where this process may; otherwise it asks timedated (org.freedesktop.timedate1
// on the system bus), which may ask the user for an administrator's password. Owns the questions that are under way.
#pragma once

#include "SystemClock.h"
#include <QObject>
#include <ctime>

class LinuxSystemClock final : public SystemClock {
  public:
    /// `settime` is the system call: 0, or -1 with errno.
    using SetTime = int (*)(clockid_t, const timespec*);
    explicit LinuxSystemClock(SetTime settime = &clock_settime) : m_settime(settime) {}

    /// Two minutes are left for the password.
    void Set(std::chrono::system_clock::time_point time, Outcome outcome) override;

  private:
    void askTimedated(std::chrono::system_clock::time_point time, const QString& refusal, const Outcome& outcome);

    SetTime m_settime;
    QObject m_questions; ///< their parent
};

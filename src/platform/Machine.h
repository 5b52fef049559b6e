// The computer itself: its facts, its power, its clock, its dial-up line.
#pragma once

#include <QString>
#include <chrono>
#include <functional>
#include <optional>

struct SystemFacts {
    QString system;       ///< name and version of the operating system
    QString kernel;       ///< name and version of its kernel
    QString architecture; ///< of the processor, "x86_64"
    int processors = 0;   ///< that are online
    qint64 memory = 0;    ///< bytes
};

/// nullopt when the system does not answer.
[[nodiscard]] std::optional<SystemFacts> ReadSystemFacts();

class PowerControl {
  public:
    virtual ~PowerControl() = default;

    /// Asks the operating system to power off; false when it refuses.
    [[nodiscard]] virtual bool PowerOff() = 0;
};

class SystemClock {
  public:
    virtual ~SystemClock() = default;

    /// Empty when the clock was set, otherwise the reason in the system's own words.
    using Outcome = std::function<void(const QString& reason)>;

    /// Sets the clock (UTC) and calls `outcome` once, during the call or later: the system may ask the user for a
    /// password first. The time that passes until then is added. Destroying this object drops the outcome.
    virtual void Set(std::chrono::system_clock::time_point time, Outcome outcome) = 0;
};

class DialUp {
  public:
    virtual ~DialUp() = default;

    /// True when exactly one dial-up connection is up; false for none, for several, and when it cannot be found out.
    [[nodiscard]] virtual bool IsActive() const = 0;
};

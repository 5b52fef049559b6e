// Setting the computer's clock. Owns nothing; a refusal is told with the system's own words.
#pragma once

#include <QString>
#include <chrono>
#include <functional>

class SystemClock {
  public:
    virtual ~SystemClock() = default;

    /// Empty when the clock was set, otherwise the system's reason.
    using Outcome = std::function<void(const QString& reason)>;

    /// Sets the clock (UTC) and tells the outcome once, during the call or later: the system may ask the user for a
    /// password first. The time that passes meanwhile is made up for. Ends silently with this object.
    virtual void Set(std::chrono::system_clock::time_point time, Outcome outcome) = 0;
};

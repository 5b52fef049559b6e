// The emergency exit: F8 held down while actions run ends the whole program. Owns nothing, cannot fail.
#pragma once

#include "EngineServices.h"

class Interruptions;
class KeyState;

class SafeExit final {
  public:
    SafeExit(const EngineServices& services, const KeyState& keys, Interruptions& interruptions)
        : m_services(services), m_keys(keys), m_interruptions(interruptions) {}

    /// True while the key is down and the option allows it.
    [[nodiscard]] bool IsRequested() const;

    /// Stops monitoring, tells the user and ends the process without saving. What the logs say was done is done.
    void End(MonitoringSwitch& monitoring);

  private:
    const EngineServices& m_services;
    const KeyState& m_keys;
    Interruptions& m_interruptions;
};

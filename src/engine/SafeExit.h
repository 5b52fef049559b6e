// The emergency exit: F8 held down while actions run ends the whole program.
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

    /// Stops monitoring, shows a box and ends the process without saving. Everything the logs report as done is done.
    void End(MonitoringSwitch& monitoring);

  private:
    const EngineServices& m_services;
    const KeyState& m_keys;
    Interruptions& m_interruptions;
};

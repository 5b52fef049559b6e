// The emergency exit: F8 held down while actions run ends the whole program. Owns nothing, cannot fail.
#pragma once

class EngineOptions;
class Interruptions;
class KeyState;
class MonitoringSwitch;
class Process;
class StringTable;

class SafeExit final {
  public:
    struct Parts {
        const EngineOptions& options;
        const KeyState& keys;
        Process& process;
        Interruptions& interruptions;
        const StringTable& texts;
    };
    explicit SafeExit(const Parts& parts) : m_parts(parts) {}

    /// True while the key is down and the option allows it.
    [[nodiscard]] bool IsRequested() const;

    /// Stops monitoring, tells the user and ends the process without saving. What the logs say was done is done.
    void End(MonitoringSwitch& monitoring);

  private:
    Parts m_parts;
};

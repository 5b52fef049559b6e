// The emergency exit: F8 held down while actions run ends the whole program. Owns nothing, cannot fail.
#pragma once

class EngineOptions;
class KeyState;
class MonitoringSwitch;
class Process;
class Prompter;
class StringTable;

class SafeExit final {
  public:
    struct Parts {
        const EngineOptions& options;
        const KeyState& keys;
        Process& process;
        Prompter& prompter;
        const StringTable& texts;
    };
    explicit SafeExit(const Parts& parts) : m_parts(parts) {}

    /// True while the key is down and the option allows it.
    [[nodiscard]] bool IsRequested() const;

    /// Stops monitoring, tells the user and ends the process without saving.
    void End(MonitoringSwitch& monitoring);

  private:
    Parts m_parts;
};

// Powers the computer off. Owns nothing; says when the system refused.
#pragma once

class PowerControl {
  public:
    virtual ~PowerControl() = default;

    /// Asks the operating system to power off; returns when the request was taken (true) or refused (false).
    [[nodiscard]] virtual bool PowerOff() = 0;
};

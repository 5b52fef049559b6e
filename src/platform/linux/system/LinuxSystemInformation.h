// Asks the kernel and the distribution's os-release file (through Qt) what this machine is. Owns nothing.
#pragma once

#include "SystemInformation.h"

class LinuxSystemInformation final : public SystemInformation {
  public:
    [[nodiscard]] std::optional<SystemFacts> Read() const override;
};

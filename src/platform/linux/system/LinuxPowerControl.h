// Powers off through logind (org.freedesktop.login1 on the system bus), which ends the sessions in good order. Owns
// nothing. False when there is no bus, no logind, no permission, or no answer within ten seconds.
#pragma once

#include "PowerControl.h"

class LinuxPowerControl final : public PowerControl {
  public:
    [[nodiscard]] bool PowerOff() override;
};

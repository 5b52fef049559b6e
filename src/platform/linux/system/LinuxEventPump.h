// Runs what waits in Qt's event queue. Owns nothing, never fails; without an application object it does nothing.
#pragma once

#include "EventPump.h"

class LinuxEventPump final : public EventPump {
  public:
    void Yield() override;
};

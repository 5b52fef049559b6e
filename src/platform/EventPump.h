// Lets pending events run in the middle of long work, so that the window stays alive. Owns nothing, never fails.
#pragma once

class EventPump {
  public:
    virtual ~EventPump() = default;

    /// Handles every event that is waiting now, without waiting for new ones. Timer ticks, commands and socket events
    /// can run inside: hold no node, row or document pointer across it.
    virtual void Yield() = 0;
};

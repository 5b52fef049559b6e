// Lets pending events run in the middle of long work, so that the window stays alive. Never fails.
#pragma once

#include <QCoreApplication>

class EventPump {
  public:
    virtual ~EventPump() = default;

    /// Handles all pending events without waiting for new ones. Timer ticks, commands and socket events may run: hold
    /// no node, row or document pointer across it.
    virtual void Yield() = 0;
};

/// Qt's event queue. Does nothing without an application object.
class QtEventPump final : public EventPump {
  public:
    void Yield() override { QCoreApplication::processEvents(); }
};

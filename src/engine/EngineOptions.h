// The four general options the engine obeys. Read afresh at each use, so a changed option counts at once.
#pragma once

#include <QString>

class EngineOptions {
  public:
    virtual ~EngineOptions() = default;

    [[nodiscard]] virtual bool ShutdownWhenIdle() const = 0;
    [[nodiscard]] virtual bool SafeExit() const = 0;
    [[nodiscard]] virtual bool StopOnMissingFolder() const = 0;
    [[nodiscard]] virtual QString ApplicationLog() const = 0;
};

// What the parts of a run may do to monitoring. Cuts the circle between the run and the controller.
#pragma once

class MonitoringSwitch {
  public:
    virtual ~MonitoringSwitch() = default;

    [[nodiscard]] virtual bool IsOn() const = 0;

    /// Ends monitoring; does no harm when it is off.
    virtual void StopMonitoring() = 0;

    /// Writes every row's idle or active status, and ends monitoring when no row is checked and no run is going on.
    virtual void CheckAllIdle() = 0;
};

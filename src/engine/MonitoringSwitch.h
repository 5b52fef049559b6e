// What the parts of a run may ask of monitoring and do to it. Cuts the circle between the run and the controller.
#pragma once

class MonitoringSwitch {
  public:
    virtual ~MonitoringSwitch() = default;

    /// Asked again whenever events may have run: nothing more is started once it is off.
    [[nodiscard]] virtual bool IsOn() const = 0;

    /// A run has ended with which its activity is done for good, its box cleared: once-only or one-time. What ends
    /// monitoring after that may also switch the machine off.
    virtual void ActivityDone() = 0;

    /// Ends monitoring; does no harm when it is off.
    virtual void StopMonitoring() = 0;

    /// Writes every row's idle or active status, and ends monitoring when no row is checked, no run is going on
    /// and the activity file is loaded.
    virtual void CheckAllIdle() = 0;
};

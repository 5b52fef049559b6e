// The user's own systemd: the service is a unit file below $XDG_CONFIG_HOME/systemd/user, or the one that a package has
// brought, which `systemctl --user` enables, starts and stops. Owns the name of the socket for notices and the handlers
// of SIGUSR1 and SIGUSR2, which are Pause and Continue here. Entries for the event log are lines on standard error,
// with the priority in front when that is the journal (sd-daemon(3)).
#pragma once

#include "ServiceManager.h"
#include "SignalPipe.h"
#include "Systemd.h"
#include "WatchedTools.h"
#include <filesystem>
#include <memory>
#include <optional>

/// The state in the answer of `systemctl show`, a line "Property=value" each (org.freedesktop.systemd1(5)).
[[nodiscard]] ServiceState StateFromProperties(const QByteArray& answer);

class LinuxServiceManager final : public ServiceManager {
  public:
    /// `configHome` may be empty: then nothing can be installed. `packagedUnit` is where a package puts the unit: as
    /// long as it is there, Install enables it and Uninstall disables it. A unit of the user's own would hide it, so
    /// both remove that.
    LinuxServiceManager(std::filesystem::path program, const std::filesystem::path& configHome,
                        ServiceNotifier notifier, std::filesystem::path packagedUnit = {});

    /// Each call of systemctl is killed after ten seconds.
    void Install(Outcome outcome) override;
    void Uninstall(Outcome outcome) override;
    void QueryState(StateListener listener) override;

    /// Through the command interpreter that $COMSPEC names, where it is set.
    [[nodiscard]] bool Start(const QString& service) override;
    [[nodiscard]] bool Stop(const QString& service) override;

    void Connect() override {} // systemd waits for the notice
    [[nodiscard]] bool AcceptControls(bool debug, ControlListener listener) override;
    void NotifyReady() override;
    void NotifyStopping() override;
    void NotifyEnd(int /*exitCode*/) override {} // systemd sees it
    void LogEvent(ServiceEvent type, int id, const QString& text) override;

  private:
    void systemctl(const QStringList& words, WatchedTools::Listener listener);
    [[nodiscard]] bool isUnitBrought() const;
    [[nodiscard]] std::error_code writeOwnUnit(const std::optional<QByteArray>& text) const;
    void disableBroughtUnit(const Outcome& outcome);
    void undoInstall(const std::optional<QByteArray>& former, const QString& reason, const Outcome& outcome);

    std::filesystem::path m_program;
    std::filesystem::path m_unit; ///< empty when there is no place for it
    std::filesystem::path m_packagedUnit;
    ServiceNotifier m_notifier;
    std::unique_ptr<SignalPipe> m_controls;
    WatchedTools m_tools; ///< last: its processes report to this object
};

// The service control manager of Windows: puts the service into its database, starts and stops it, and answers it while
// this process is the service. Owns the line to it. Installing takes an administrator's rights. The service runs as the
// system itself, with the options and the data folder of the user who installed it.
#pragma once

#include "MachineSettings.h"
#include "ServiceDispatcher.h"
#include "ServiceManager.h"
#include <filesystem>

class WindowsServiceManager final : public ServiceManager {
  public:
    WindowsServiceManager(std::filesystem::path program, std::filesystem::path userDataFolder)
        : m_program(std::move(program)), m_userDataFolder(std::move(userDataFolder)) {}

    /// The service starts with the computer. Options that the user changes later reach it when it has been
    /// uninstalled and installed again.
    void Install(Outcome outcome) override;
    void Uninstall(Outcome outcome) override;
    void QueryState(StateListener listener) override;

    /// Through the command interpreter that %COMSPEC% names.
    [[nodiscard]] bool Start(const QString& service) override;
    [[nodiscard]] bool Stop(const QString& service) override;

    void Connect() override;
    /// In debug mode nobody would send controls: false then too.
    [[nodiscard]] bool AcceptControls(bool debug, ControlListener listener) override;
    void NotifyReady() override { report(SERVICE_RUNNING); }
    void NotifyStopping() override { report(SERVICE_STOP_PENDING); }
    void NotifyEnd(int exitCode) override;
    void LogEvent(ServiceEvent type, int id, const QString& text) override;

  private:
    void report(DWORD state);

    std::filesystem::path m_program;
    std::filesystem::path m_userDataFolder;
    MachineSettings m_settings;
    std::unique_ptr<ServiceDispatcher> m_dispatcher;
};

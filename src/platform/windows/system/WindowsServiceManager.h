// The service control manager of Windows: puts the service into its database, starts and stops it, and answers it while
// this process is the service. Owns the line to it. Installing takes an administrator's rights.
#pragma once

#include "ServiceDispatcher.h"
#include "ServiceManager.h"
#include <filesystem>

class WindowsServiceManager final : public ServiceManager {
  public:
    explicit WindowsServiceManager(std::filesystem::path program) : m_program(std::move(program)) {}

    /// The service starts with the computer.
    void Install(Outcome outcome) override;
    void Uninstall(Outcome outcome) override;
    void QueryState(StateListener listener) override;

    /// Through the command interpreter that %COMSPEC% names.
    [[nodiscard]] bool Start(const QString& service) override;
    [[nodiscard]] bool Stop(const QString& service) override;

    /// In debug mode nobody would send controls: false then too.
    [[nodiscard]] bool AcceptControls(bool debug, ControlListener listener) override;
    void NotifyReady() override { report(SERVICE_RUNNING); }
    void NotifyStopping() override { report(SERVICE_STOP_PENDING); }
    void LogEvent(ServiceEvent type, int id, const QString& text) override;

  private:
    void report(DWORD state);

    std::filesystem::path m_program;
    std::unique_ptr<ServiceDispatcher> m_dispatcher;
};

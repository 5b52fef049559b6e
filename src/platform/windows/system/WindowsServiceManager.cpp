#include "WindowsServiceManager.h"
#include "EventLog.h"
#include "modForeignText.h"

namespace {

const wchar_t* const serviceName = L"KalvenorPro";
const wchar_t* const displayName = L"Kalvenor Pro";

struct ServiceCloser {
    using pointer = SC_HANDLE;
    void operator()(SC_HANDLE handle) const { CloseServiceHandle(handle); }
};
using ServiceHandle = std::unique_ptr<SC_HANDLE, ServiceCloser>;

/// Runs "net VERB SERVICE" without a window and does not wait for it.
bool net(const QString& verb, const QString& service) {
    const std::wstring interpreter = qEnvironmentVariable("COMSPEC").toStdWString();
    if (interpreter.empty())
        return false;
    std::wstring line = L'"' + interpreter + L"\" /c net " + verb.toStdWString() + L' ' + service.toStdWString();
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(interpreter.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                       &startup, &process) == FALSE)
        return false;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return true;
}

QString textOf(DWORD code) {
    return modForeignText::OfError({static_cast<int>(code), std::system_category()});
}

QString lastError() {
    return textOf(GetLastError());
}

} // namespace

void WindowsServiceManager::Install(Outcome outcome) {
    const ServiceHandle manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CREATE_SERVICE));
    if (!manager)
        return outcome(false, lastError());
    const std::wstring line = L'"' + m_program.wstring() + L"\" STARTSERVICE";
    const ServiceHandle service(CreateServiceW(manager.get(), serviceName, displayName, DELETE,
                                               SERVICE_WIN32_OWN_PROCESS, SERVICE_AUTO_START, SERVICE_ERROR_NORMAL,
                                               line.c_str(), nullptr, nullptr, nullptr, nullptr, nullptr));
    if (!service)
        return outcome(false, lastError());
    if (const std::error_code error = m_settings.Store(m_userDataFolder)) {
        DeleteService(service.get());
        return outcome(false, modForeignText::OfError(error));
    }
    EventLog::Register();
    outcome(true, {});
}

void WindowsServiceManager::Uninstall(Outcome outcome) {
    const ServiceHandle manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CONNECT));
    if (!manager)
        return outcome(false, lastError());
    const ServiceHandle service(OpenServiceW(manager.get(), serviceName, DELETE));
    if (!service || DeleteService(service.get()) == FALSE)
        return outcome(false, lastError());
    std::ignore = m_settings.Remove();
    EventLog::Unregister();
    outcome(true, {});
}

void WindowsServiceManager::QueryState(StateListener listener) {
    const ServiceHandle manager(OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CONNECT));
    if (!manager)
        return listener({ServiceState::Kind::Unknown, lastError()});
    const ServiceHandle service(OpenServiceW(manager.get(), serviceName, SERVICE_QUERY_STATUS));
    if (!service && GetLastError() == ERROR_SERVICE_DOES_NOT_EXIST)
        return listener({ServiceState::Kind::NotInstalled, {}});
    SERVICE_STATUS status{};
    if (!service || QueryServiceStatus(service.get(), &status) == FALSE)
        return listener({ServiceState::Kind::Unknown, lastError()});
    if (status.dwCurrentState != SERVICE_STOPPED)
        return listener({ServiceState::Kind::Running, {}});
    const bool hasFailed = status.dwWin32ExitCode != NO_ERROR && status.dwWin32ExitCode != ERROR_SERVICE_NEVER_STARTED;
    listener({hasFailed ? ServiceState::Kind::Failed : ServiceState::Kind::Stopped,
              hasFailed ? textOf(status.dwWin32ExitCode) : QString()});
}

bool WindowsServiceManager::Start(const QString& service) {
    return net(QStringLiteral("start"), service);
}

bool WindowsServiceManager::Stop(const QString& service) {
    return net(QStringLiteral("stop"), service);
}

void WindowsServiceManager::Connect() {
    if (!m_dispatcher)
        m_dispatcher = ServiceDispatcher::Attach(serviceName);
}

bool WindowsServiceManager::AcceptControls(bool debug, ControlListener listener) {
    return m_dispatcher && !debug && m_dispatcher->Listen(std::move(listener));
}

void WindowsServiceManager::LogEvent(ServiceEvent type, int id, const QString& text) {
    EventLog::Write(static_cast<WORD>(type), static_cast<DWORD>(id), text);
}

void WindowsServiceManager::NotifyEnd(int exitCode) {
    if (m_dispatcher)
        m_dispatcher->SetExitCode(static_cast<DWORD>(exitCode));
}

void WindowsServiceManager::report(DWORD state) {
    if (m_dispatcher)
        m_dispatcher->Report(state);
}

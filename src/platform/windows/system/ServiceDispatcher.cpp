#include "ServiceDispatcher.h"
#include "LastResort.h"

#include <array>
#include <atomic>
#include <chrono>

namespace {

constexpr std::chrono::seconds reportInterval{5};
constexpr DWORD patienceMilliseconds = 30000; // of the system, for the next report

/// The system hands serviceMain no argument of ours.
std::atomic<ServiceDispatcher*> current = nullptr;

bool isPending(DWORD state) {
    return state == SERVICE_START_PENDING || state == SERVICE_STOP_PENDING;
}

SERVICE_STATUS statusOf(DWORD state) {
    SERVICE_STATUS status{};
    status.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
    status.dwCurrentState = state;
    if (state == SERVICE_RUNNING || state == SERVICE_PAUSED)
        status.dwControlsAccepted = SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN | SERVICE_ACCEPT_PAUSE_CONTINUE;
    else if (isPending(state))
        status.dwWaitHint = patienceMilliseconds;
    return status;
}

} // namespace

std::unique_ptr<ServiceDispatcher> ServiceDispatcher::Attach(std::wstring service) {
    std::unique_ptr<ServiceDispatcher> dispatcher(new ServiceDispatcher(std::move(service)));
    ServiceDispatcher* nobody = nullptr;
    if (!current.compare_exchange_strong(nobody, dispatcher.get()))
        return nullptr;
    std::future<bool> connected = dispatcher->m_connected.get_future();
    dispatcher->m_thread = std::thread([line = dispatcher.get()] { line->dispatch(); });
    if (!connected.get())
        dispatcher.reset();
    return dispatcher;
}

ServiceDispatcher::ServiceDispatcher(std::wstring service) : m_service(std::move(service)) {}

ServiceDispatcher::~ServiceDispatcher() {
    Report(SERVICE_STOPPED);
    if (m_thread.joinable())
        m_thread.join();
    ServiceDispatcher* self = this;
    current.compare_exchange_strong(self, nullptr);
}

bool ServiceDispatcher::Listen(ServiceManager::ControlListener listener) {
    if (m_listener)
        return false;
    m_listener = std::move(listener);
    return true;
}

void ServiceDispatcher::Report(DWORD state) {
    const std::lock_guard guard(m_guard);
    if (m_state == SERVICE_STOPPED)
        return; // nothing comes after it
    m_state = state;
    m_checkPoint = 0;
    send();
    m_stateChanged.notify_all();
}

void ServiceDispatcher::SetExitCode(DWORD code) {
    const std::lock_guard guard(m_guard);
    m_exitCode = code;
}

/// The caller holds the guard.
void ServiceDispatcher::send() {
    if (m_handle == nullptr)
        return;
    SERVICE_STATUS status = statusOf(m_state);
    status.dwCheckPoint = isPending(m_state) ? ++m_checkPoint : 0;
    if (m_state == SERVICE_STOPPED && m_exitCode != NO_ERROR) {
        status.dwWin32ExitCode = ERROR_SERVICE_SPECIFIC_ERROR;
        status.dwServiceSpecificExitCode = m_exitCode;
    }
    SetServiceStatus(m_handle, &status);
}

void ServiceDispatcher::dispatch() {
    const std::array table{SERVICE_TABLE_ENTRYW{m_service.data(), &ServiceDispatcher::serviceMain},
                           SERVICE_TABLE_ENTRYW{nullptr, nullptr}};
    // Does not return before the service has stopped, unless this process is none.
    if (StartServiceCtrlDispatcherW(table.data()) == FALSE)
        m_connected.set_value(false);
}

void WINAPI ServiceDispatcher::serviceMain(DWORD, LPWSTR*) {
    current.load()->serve();
}

void ServiceDispatcher::serve() {
    std::unique_lock guard(m_guard);
    m_handle = RegisterServiceCtrlHandlerExW(m_service.c_str(), &ServiceDispatcher::handle, this);
    send();
    m_connected.set_value(true);
    while (m_state != SERVICE_STOPPED) {
        if (m_stateChanged.wait_for(guard, reportInterval) == std::cv_status::timeout && isPending(m_state))
            send();
    }
}

DWORD WINAPI ServiceDispatcher::handle(DWORD control, DWORD, LPVOID, LPVOID dispatcher) {
    auto& self = *static_cast<ServiceDispatcher*>(dispatcher);
    constexpr DWORD firstOfUsers = 128;
    switch (control) {
    case SERVICE_CONTROL_STOP:
    case SERVICE_CONTROL_SHUTDOWN:
        LastResort::EndSoon();
        self.Report(SERVICE_STOP_PENDING);
        self.tell(ServiceControl::Stop);
        return NO_ERROR;
    case SERVICE_CONTROL_PAUSE:
        self.Report(SERVICE_PAUSED);
        self.tell(ServiceControl::Pause);
        return NO_ERROR;
    case SERVICE_CONTROL_CONTINUE:
        self.Report(SERVICE_RUNNING);
        self.tell(ServiceControl::Continue);
        return NO_ERROR;
    case SERVICE_CONTROL_INTERROGATE:
        return NO_ERROR;
    default:
        return control >= firstOfUsers ? NO_ERROR : ERROR_CALL_NOT_IMPLEMENTED;
    }
}

void ServiceDispatcher::tell(ServiceControl control) {
    QMetaObject::invokeMethod(
        &m_eventLoop,
        [this, control] {
            if (m_listener)
                m_listener(control);
        },
        Qt::QueuedConnection);
}

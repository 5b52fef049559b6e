#include "ServiceDispatcher.h"

#include <array>
#include <atomic>

namespace {

constexpr DWORD startMilliseconds = 60000;
constexpr DWORD stopMilliseconds = 120000; // the file that is being copied is finished first

/// The system hands serviceMain no argument of ours.
std::atomic<ServiceDispatcher*> current = nullptr;

SERVICE_STATUS statusOf(DWORD state) {
    SERVICE_STATUS status{};
    status.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
    status.dwCurrentState = state;
    if (state == SERVICE_RUNNING || state == SERVICE_PAUSED)
        status.dwControlsAccepted = SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN | SERVICE_ACCEPT_PAUSE_CONTINUE;
    else if (state == SERVICE_START_PENDING)
        status.dwWaitHint = startMilliseconds;
    else if (state == SERVICE_STOP_PENDING)
        status.dwWaitHint = stopMilliseconds;
    return status;
}

} // namespace

std::unique_ptr<ServiceDispatcher> ServiceDispatcher::Attach(std::wstring service,
                                                             ServiceManager::ControlListener listener) {
    std::unique_ptr<ServiceDispatcher> dispatcher(new ServiceDispatcher(std::move(service), std::move(listener)));
    ServiceDispatcher* nobody = nullptr;
    if (!current.compare_exchange_strong(nobody, dispatcher.get()))
        return nullptr;
    std::future<bool> connected = dispatcher->m_connected.get_future();
    dispatcher->m_thread = std::thread([line = dispatcher.get()] { line->dispatch(); });
    if (!connected.get())
        dispatcher.reset();
    return dispatcher;
}

ServiceDispatcher::ServiceDispatcher(std::wstring service, ServiceManager::ControlListener listener)
    : m_service(std::move(service)), m_listener(std::move(listener)) {}

ServiceDispatcher::~ServiceDispatcher() {
    Report(SERVICE_STOPPED);
    if (m_thread.joinable())
        m_thread.join();
    ServiceDispatcher* self = this;
    current.compare_exchange_strong(self, nullptr);
}

void ServiceDispatcher::Report(DWORD state) {
    const std::lock_guard guard(m_guard);
    if (m_state == SERVICE_STOPPED)
        return; // nothing comes after it
    m_state = state;
    if (m_handle != nullptr) {
        SERVICE_STATUS status = statusOf(state);
        SetServiceStatus(m_handle, &status);
    }
    m_stateChanged.notify_all();
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
    SERVICE_STATUS status = statusOf(m_state);
    SetServiceStatus(m_handle, &status);
    m_connected.set_value(true);
    m_stateChanged.wait(guard, [this] { return m_state == SERVICE_STOPPED; });
}

DWORD WINAPI ServiceDispatcher::handle(DWORD control, DWORD, LPVOID, LPVOID dispatcher) {
    auto& self = *static_cast<ServiceDispatcher*>(dispatcher);
    constexpr DWORD firstOfUsers = 128;
    switch (control) {
    case SERVICE_CONTROL_STOP:
    case SERVICE_CONTROL_SHUTDOWN:
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
        &m_eventLoop, [this, control] { m_listener(control); }, Qt::QueuedConnection);
}

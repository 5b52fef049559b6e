// Connects this process to the service control manager: receives its controls on a thread of its own and reports the
// service's state; while it starts or stops, again and again, so that it does not pass for one that hangs. Owns the
// thread; the destructor reports the service as stopped. Only one object at a time, because the system's callback does
// not say which service it is for.
#pragma once

#include "ServiceManager.h"
#include <QObject>
#include <condition_variable>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <windows.h>

class ServiceDispatcher final {
  public:
    /// Null when no service control manager started this process.
    [[nodiscard]] static std::unique_ptr<ServiceDispatcher> Attach(std::wstring service);
    ~ServiceDispatcher();
    Q_DISABLE_COPY_MOVE(ServiceDispatcher)

    /// The listener is called from the event loop of the thread that made this object. False when there is one already.
    [[nodiscard]] bool Listen(ServiceManager::ControlListener listener);

    /// SERVICE_RUNNING and the other states of SetServiceStatus.
    void Report(DWORD state);
    /// The exit code that goes with SERVICE_STOPPED.
    void SetExitCode(DWORD code);

  private:
    explicit ServiceDispatcher(std::wstring service);
    static void WINAPI serviceMain(DWORD argumentCount, LPWSTR* arguments);
    static DWORD WINAPI handle(DWORD control, DWORD eventType, LPVOID eventData, LPVOID dispatcher);
    void dispatch();
    void serve();
    void send();
    void tell(ServiceControl control);

    std::wstring m_service;
    ServiceManager::ControlListener m_listener;
    QObject m_eventLoop; ///< lives in the thread that listens
    std::mutex m_guard;  ///< of the state and its handle
    std::condition_variable m_stateChanged;
    SERVICE_STATUS_HANDLE m_handle = nullptr;
    DWORD m_state = SERVICE_START_PENDING;
    DWORD m_exitCode = NO_ERROR;
    DWORD m_checkPoint = 0;
    std::promise<bool> m_connected;
    std::thread m_thread;
};

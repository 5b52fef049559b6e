#include "LastResort.h"
#include "TerminationSignal.h"

#include <atomic>
#include <mutex>
#include <windows.h>

class TerminationSignal::Handlers final {
  public:
    explicit Handlers(TerminationSignal& owner) : m_owner(owner) {
        const std::lock_guard guard(mutex);
        if (current != nullptr)
            return;
        current = this;
        SetConsoleCtrlHandler(&Handlers::handle, TRUE);
    }
    ~Handlers() {
        const std::lock_guard guard(mutex);
        if (current != this)
            return;
        current = nullptr;
        SetConsoleCtrlHandler(&Handlers::handle, FALSE);
    }
    Q_DISABLE_COPY_MOVE(Handlers)

  private:
    /// On a thread of the system's own. Behind a closed console, a logoff and a shutdown the process ends when this
    /// returns, so it waits for the end; the system waits for some seconds only.
    static BOOL WINAPI handle(DWORD event) {
        {
            const std::lock_guard guard(mutex);
            if (current == nullptr)
                return FALSE;
            current->raise();
        }
        if (event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT)
            Sleep(INFINITE);
        return TRUE;
    }

    void raise() {
        if (m_pending.exchange(true))
            return;
        const auto tell = [this] {
            m_pending = false;
            LastResort::EndSoon();
            Q_EMIT m_owner.Raised();
        };
        QMetaObject::invokeMethod(&m_owner, tell, Qt::QueuedConnection);
    }

    // The system's callback takes no argument of ours.
    static inline std::mutex mutex; ///< of `current`
    static inline Handlers* current = nullptr;

    TerminationSignal& m_owner;
    std::atomic<bool> m_pending = false;
};

TerminationSignal::TerminationSignal(QObject* parent)
    : QObject(parent), m_handlers(std::make_unique<Handlers>(*this)) {}

TerminationSignal::~TerminationSignal() = default;

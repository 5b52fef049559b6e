#include "SafeExit.h"
#include "Interruptions.h"
#include "KeyState.h"
#include "Process.h"
#include "Prompter.h"
#include "StringTable.h"

bool SafeExit::IsRequested() const {
    return m_services.options.SafeExit() && m_keys.IsF8Down();
}

void SafeExit::End(MonitoringSwitch& monitoring) {
    monitoring.StopMonitoring();
    m_interruptions.Ask({m_services.texts[Text::AbortedByUser], m_services.texts[Text::Abort], MessageIcon::Exclamation,
                         MessageButtons::Ok});
    m_services.process.EndNow(0);
}

#include "SafeExit.h"
#include "EngineOptions.h"
#include "Interruptions.h"
#include "KeyState.h"
#include "MonitoringSwitch.h"
#include "Process.h"
#include "Prompter.h"
#include "StringTable.h"

bool SafeExit::IsRequested() const {
    return m_parts.options.SafeExit() && m_parts.keys.IsF8Down();
}

void SafeExit::End(MonitoringSwitch& monitoring) {
    monitoring.StopMonitoring();
    m_parts.interruptions.Ask(
        {m_parts.texts[Text::AbortedByUser], m_parts.texts[Text::Abort], MessageIcon::Exclamation, MessageButtons::Ok});
    m_parts.process.EndNow(0);
}

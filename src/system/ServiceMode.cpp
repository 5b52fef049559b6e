#include "ServiceMode.h"

#include "Prompter.h"
#include "StringTable.h"
#include <QStringList>

namespace {

constexpr int pausedEvent = 109;
constexpr int continuedEvent = 110;

/// The name under which a caller speaks of the service; both lead to the same one.
QString serviceName(ServiceCaller caller) {
    return caller == ServiceCaller::CommandLine ? QStringLiteral("Kalvenor") : QStringLiteral("KalvenorPro");
}

} // namespace

bool ServiceMode::IsWord(const QString& text) {
    static const QStringList words{QStringLiteral("install"),      QStringLiteral("uninstall"),
                                   QStringLiteral("debug"),        QStringLiteral("initialize"),
                                   QStringLiteral("startservice"), QStringLiteral("stopservice")};
    return words.contains(text);
}

std::optional<int> ServiceMode::ServiceConfiguration(const QString& word, ServiceCaller caller) {
    if (word == QLatin1String("install"))
        return tellInstallation(m_manager.Install(), Text::ServiceInstalled, Text::ServiceInstallFailed, caller);
    if (word == QLatin1String("uninstall"))
        return tellInstallation(m_manager.Uninstall(), Text::ServiceUninstalled, Text::ServiceUninstallFailed, caller);
    if (word == QLatin1String("startservice"))
        return control(true, caller);
    if (word == QLatin1String("stopservice"))
        return control(false, caller);
    if (word == QLatin1String("debug"))
        m_debug = true;
    else if (word == QLatin1String("initialize"))
        // Refused in a window that nobody manages, which goes on as a window.
        static_cast<void>(m_manager.AcceptControls(m_debug, [this](ServiceControl control) { obey(control); }));
    else if (!word.isEmpty())
        tell(Text::UnknownServiceParameter, true);
    return std::nullopt;
}

std::optional<int> ServiceMode::tellInstallation(bool succeeded, Text success, Text failure, ServiceCaller caller) {
    tell(succeeded ? success : failure, !succeeded && caller == ServiceCaller::CommandLine);
    if (caller == ServiceCaller::Dialog)
        return std::nullopt;
    return succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}

std::optional<int> ServiceMode::control(bool start, ServiceCaller caller) {
    if (caller == ServiceCaller::Dialog)
        tell(start ? Text::ClosesToStartService : Text::ClosesToStopService, true);
    const QString name = serviceName(caller);
    if (start ? m_manager.Start(name) : m_manager.Stop(name))
        return EXIT_SUCCESS;
    // Nobody would take over what a window that closes now leaves.
    tell(Text::ServiceManagerNotStarted, true);
    return caller == ServiceCaller::Dialog ? std::nullopt : std::optional<int>(EXIT_FAILURE);
}

void ServiceMode::obey(ServiceControl control) {
    switch (control) {
    case ServiceControl::Pause:
        return m_manager.LogEvent(ServiceEvent::Error, pausedEvent, m_texts[Text::Service] + m_texts[Text::Paused]);
    case ServiceControl::Continue:
        return m_manager.LogEvent(ServiceEvent::Information, continuedEvent, m_texts[Text::ServiceContinued]);
    case ServiceControl::Stop:
        Q_EMIT StopWanted();
    }
}

void ServiceMode::tell(Text text, bool isProblem) {
    m_prompter.Ask({m_texts[text], m_texts[Text::ServiceTitle],
                    isProblem ? MessageIcon::Exclamation : MessageIcon::Information, MessageButtons::Ok});
}

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
        return tellInstallation(m_manager.Install(), 412, 413, caller);
    if (word == QLatin1String("uninstall"))
        return tellInstallation(m_manager.Uninstall(), 414, 415, caller);
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
        tell(416, true);
    return std::nullopt;
}

std::optional<int> ServiceMode::tellInstallation(bool succeeded, int success, int failure, ServiceCaller caller) {
    tell(succeeded ? success : failure, !succeeded && caller == ServiceCaller::CommandLine);
    if (caller == ServiceCaller::Dialog)
        return std::nullopt;
    return succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
}

std::optional<int> ServiceMode::control(bool start, ServiceCaller caller) {
    if (caller == ServiceCaller::Dialog)
        tell(start ? 426 : 425, true);
    const QString name = serviceName(caller);
    if (start ? m_manager.Start(name) : m_manager.Stop(name))
        return EXIT_SUCCESS;
    // Nobody would take over what a window that closes now leaves.
    tell(580, true);
    return caller == ServiceCaller::Dialog ? std::nullopt : std::optional<int>(EXIT_FAILURE);
}

void ServiceMode::obey(ServiceControl control) {
    switch (control) {
    case ServiceControl::Pause:
        return m_manager.LogEvent(ServiceEvent::Error, pausedEvent, m_texts.Text(418) + m_texts.Text(420));
    case ServiceControl::Continue:
        return m_manager.LogEvent(ServiceEvent::Information, continuedEvent, m_texts.Text(419));
    case ServiceControl::Stop:
        Q_EMIT StopWanted();
    }
}

void ServiceMode::tell(int text, bool isProblem) {
    m_prompter.Ask({m_texts.Text(text), m_texts.Text(417),
                    isProblem ? MessageIcon::Exclamation : MessageIcon::Information, MessageButtons::Ok});
}

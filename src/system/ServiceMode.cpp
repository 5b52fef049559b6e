#include "ServiceMode.h"

#include "Prompter.h"
#include "StringTable.h"
#include "modForeignText.h"
#include <QEventLoop>
#include <QPointer>
#include <QStringList>
#include <tuple>
#include <utility>

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
        return changeInstallation(true, caller);
    if (word == QLatin1String("uninstall"))
        return changeInstallation(false, caller);
    if (word == QLatin1String("startservice"))
        return control(true, caller);
    if (word == QLatin1String("stopservice"))
        return control(false, caller);
    if (word == QLatin1String("debug"))
        m_debug = true;
    else if (word == QLatin1String("initialize"))
        // Refused in a process without a service manager, which goes on as a window.
        std::ignore = m_manager.AcceptControls(m_debug, [this](ServiceControl control) { obey(control); });
    else if (!word.isEmpty())
        tell(m_texts[Text::UnknownServiceParameter], true);
    return std::nullopt;
}

std::optional<int> ServiceMode::changeInstallation(bool install, ServiceCaller caller) {
    const auto request = [&](ServiceManager::Outcome outcome) {
        install ? m_manager.Install(std::move(outcome)) : m_manager.Uninstall(std::move(outcome));
    };
    if (caller == ServiceCaller::CommandLine) {
        QEventLoop waiting; // nothing else runs in this process
        std::optional<bool> succeeded;
        request([&](bool done, const QString& reason) {
            succeeded = done;
            showResult(install, done, reason, !done);
            waiting.quit();
        });
        if (!succeeded)
            waiting.exec();
        return succeeded.value_or(false) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    if (std::exchange(m_isBusy, true))
        return std::nullopt;
    Q_EMIT Working();
    request([self = QPointer(this), install](bool done, const QString& reason) {
        if (self)
            self->showResult(install, done, reason, false);
        if (!self) // the box was open while the program ended
            return;
        self->m_isBusy = false;
        self->QueryState();
    });
    return std::nullopt;
}

void ServiceMode::showResult(bool installed, bool succeeded, const QString& reason, bool asProblem) {
    const Text success = installed ? Text::ServiceInstalled : Text::ServiceUninstalled;
    const Text failure = installed ? Text::ServiceInstallFailed : Text::ServiceUninstallFailed;
    const QString why = reason.isEmpty() ? QString() : QString(u"\n" + modForeignText::FromServer(reason));
    tell(m_texts[succeeded ? success : failure] + why, asProblem);
}

void ServiceMode::QueryState() {
    if (m_isBusy) {
        Q_EMIT Working();
        return;
    }
    m_manager.QueryState([self = QPointer(this)](const ServiceState& state) {
        if (self && !self->m_isBusy) // a request that began since will ask again
            Q_EMIT self->StateKnown(self->textOf(state));
    });
}

QString ServiceMode::textOf(const ServiceState& state) const {
    switch (state.kind) {
    case ServiceState::Kind::NotInstalled:
        return m_texts[Text::ServiceIsNotInstalled];
    case ServiceState::Kind::Stopped:
        return m_texts[Text::ServiceIsStopped];
    case ServiceState::Kind::Running:
        return m_texts[Text::ServiceIsRunning];
    case ServiceState::Kind::Failed:
        return m_texts[Text::ServiceHasFailed].arg(modForeignText::FromServer(state.reason));
    case ServiceState::Kind::Unknown:
        break;
    }
    return m_texts[Text::ServiceStateUnknown].arg(modForeignText::FromServer(state.reason));
}

std::optional<int> ServiceMode::control(bool start, ServiceCaller caller) {
    if (caller == ServiceCaller::Dialog)
        tell(m_texts[start ? Text::ClosesToStartService : Text::ClosesToStopService], true);
    const QString name = serviceName(caller);
    if (start ? m_manager.Start(name) : m_manager.Stop(name))
        return EXIT_SUCCESS;
    // Nobody would take over what a window that closes now leaves.
    tell(m_texts[Text::ServiceManagerNotStarted], true);
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

void ServiceMode::tell(const QString& text, bool isProblem) {
    m_prompter.Ask({text, m_texts[Text::ServiceTitle], isProblem ? MessageIcon::Exclamation : MessageIcon::Information,
                    MessageButtons::Ok});
}

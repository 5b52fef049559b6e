#include "LinuxServiceManager.h"

#include "AtomicFile.h"
#include "LinuxOwnFiles.h"
#include "Session.h"
#include "Tool.h"
#include "modForeignText.h"
#include <QHash>

namespace {

namespace fs = std::filesystem;

constexpr mode_t unitMode = 0644;
constexpr std::int64_t mostBytes = 1 << 20;
constexpr std::chrono::seconds patience{10};

const QStringList reload{QStringLiteral("daemon-reload")};

QString unitName() {
    return QString::fromLatin1(ServiceUnit::FileName);
}

bool command(const QString& verb, const QString& service) {
    const QString interpreter = qEnvironmentVariable("COMSPEC");
    if (!interpreter.isEmpty())
        return Tool::StartDetached(interpreter, {QStringLiteral("/c"), QStringLiteral("net"), verb, service});
    return Tool::StartDetached(QStringLiteral("systemctl"), {QStringLiteral("--user"), verb, service});
}

/// As in syslog(3).
int priorityOf(ServiceEvent type) {
    switch (type) {
    case ServiceEvent::Error:
        return 3;
    case ServiceEvent::Warning:
        return 4;
    case ServiceEvent::Information:
        break;
    }
    return 6;
}

} // namespace

ServiceState StateFromProperties(const QByteArray& answer) {
    QHash<QByteArray, QByteArray> properties;
    for (const QByteArray& line : answer.split('\n')) {
        const qsizetype separator = line.indexOf('=');
        if (separator > 0)
            properties[line.left(separator)] = line.mid(separator + 1).trimmed();
    }
    using Kind = ServiceState::Kind;
    const QByteArray active = properties["ActiveState"];
    if (active == "failed")
        return {Kind::Failed, QString::fromUtf8(properties["Result"] + ", status " + properties["ExecMainStatus"])};
    if (active == "active" || active == "activating" || active == "reloading" || active == "deactivating")
        return {Kind::Running, {}};
    const QByteArray file = properties["UnitFileState"];
    return {file == "enabled" || file == "alias" || file == "static" ? Kind::Stopped : Kind::NotInstalled, {}};
}

LinuxServiceManager::LinuxServiceManager(fs::path program, const fs::path& configHome, ServiceNotifier notifier,
                                         fs::path packagedUnit)
    : m_program(std::move(program)),
      m_unit(configHome.empty() ? fs::path() : configHome / "systemd/user" / ServiceUnit::FileName),
      m_packagedUnit(std::move(packagedUnit)), m_notifier(std::move(notifier)) {}

void LinuxServiceManager::systemctl(const QStringList& words, WatchedTools::Listener listener) {
    m_tools.Run(QStringLiteral("systemctl"), QStringList{QStringLiteral("--user"), QStringLiteral("--quiet")} + words,
                patience, std::move(listener));
}

bool LinuxServiceManager::isUnitBrought() const {
    std::error_code error;
    return !m_packagedUnit.empty() && fs::exists(m_packagedUnit, error);
}

/// Nothing instead of a text: the unit is removed.
std::error_code LinuxServiceManager::writeOwnUnit(const std::optional<QByteArray>& text) const {
    if (text)
        return AtomicFile::Put(m_unit, *text, unitMode);
    std::error_code error;
    fs::remove(m_unit, error);
    return error;
}

void LinuxServiceManager::Install(Outcome outcome) {
    const bool isBrought = isUnitBrought();
    const std::optional<QByteArray> text = isBrought ? std::nullopt : ServiceUnit::Text(m_program);
    if (!(text || isBrought) || m_unit.empty())
        return outcome(false, {});
    QByteArray former;
    const std::error_code noFormer = LinuxOwnFiles().ReadAll(m_unit, mostBytes, former);
    if (noFormer && noFormer != std::errc::no_such_file_or_directory)
        return outcome(false, modForeignText::OfError(noFormer));
    if (const std::error_code error = writeOwnUnit(text))
        return outcome(false, modForeignText::OfError(error));
    const std::optional<QByteArray> before = noFormer ? std::nullopt : std::optional(former);
    // The links of a unit that the user had before lead to a file that has gone.
    const QString verb = isBrought ? QStringLiteral("reenable") : QStringLiteral("enable");
    systemctl(reload, [this, before, verb, outcome](const ToolEnd& reloaded) {
        if (!reloaded.succeeded)
            return undoInstall(before, reloaded.complaint, outcome);
        systemctl({verb, unitName()}, [this, before, outcome](const ToolEnd& enabled) {
            if (!enabled.succeeded)
                return undoInstall(before, enabled.complaint, outcome);
            outcome(true, {});
        });
    });
}

/// A unit file that is not enabled would look installed.
void LinuxServiceManager::undoInstall(const std::optional<QByteArray>& former, const QString& reason,
                                      const Outcome& outcome) {
    const std::error_code error = writeOwnUnit(former);
    const QString why = error ? modForeignText::OfError(error) : reason;
    systemctl(reload, [outcome, why](const ToolEnd&) { outcome(false, why); });
}

void LinuxServiceManager::Uninstall(Outcome outcome) {
    std::error_code error;
    if (m_unit.empty() || !fs::exists(fs::symlink_status(m_unit, error)))
        return isUnitBrought() ? disableBroughtUnit(outcome) : outcome(false, {});
    // First, while the unit still says which links belong to it.
    systemctl({QStringLiteral("disable"), unitName()}, [this, outcome](const ToolEnd& disabled) {
        if (!disabled.succeeded)
            return outcome(false, disabled.complaint);
        std::error_code failure;
        if (!fs::remove(m_unit, failure))
            return outcome(false, modForeignText::OfError(failure));
        // Even if this fails, the service is gone from the next session on.
        systemctl(reload, [outcome](const ToolEnd&) { outcome(true, {}); });
    });
}

void LinuxServiceManager::disableBroughtUnit(const Outcome& outcome) {
    // systemctl disables without a word what was not enabled.
    systemctl({QStringLiteral("is-enabled"), unitName()}, [this, outcome](const ToolEnd& enabled) {
        if (!enabled.succeeded)
            return outcome(false, enabled.complaint);
        systemctl({QStringLiteral("disable"), unitName()}, [outcome](const ToolEnd& disabled) {
            outcome(disabled.succeeded, disabled.succeeded ? QString() : disabled.complaint);
        });
    });
}

void LinuxServiceManager::QueryState(StateListener listener) {
    const QString properties = QStringLiteral("--property=LoadState,UnitFileState,ActiveState,Result,ExecMainStatus");
    systemctl({QStringLiteral("show"), properties, unitName()}, [listener](const ToolEnd& end) {
        listener(end.succeeded ? StateFromProperties(end.output)
                               : ServiceState{ServiceState::Kind::Unknown, end.complaint});
    });
}

bool LinuxServiceManager::Start(const QString& service) {
    return command(QStringLiteral("start"), service);
}

bool LinuxServiceManager::Stop(const QString& service) {
    return command(QStringLiteral("stop"), service);
}

bool LinuxServiceManager::AcceptControls(bool debug, ControlListener listener) {
    if (m_controls)
        return false;
    const bool obeys = debug || m_notifier.HasListener();
    // The signals are handled in any case: their default action would end a process without a service manager.
    m_controls =
        std::make_unique<SignalPipe>(std::initializer_list<int>{SIGUSR1, SIGUSR2},
                                     [obeys, tell = std::move(listener)](const std::vector<int>& numbers) {
                                         for (const int number : obeys ? numbers : std::vector<int>())
                                             tell(number == SIGUSR1 ? ServiceControl::Pause : ServiceControl::Continue);
                                     });
    return obeys;
}

void LinuxServiceManager::NotifyReady() {
    m_notifier.Send("READY=1");
}

void LinuxServiceManager::NotifyStopping() {
    m_notifier.Send("STOPPING=1");
}

void LinuxServiceManager::LogEvent(ServiceEvent type, int id, const QString& text) {
    const QString line = modForeignText::OneLine(text).simplified() + QStringLiteral(" [%1]").arg(id);
    WriteSystemLog(priorityOf(type), line);
}

#include "LinuxServiceManager.h"

#include "AtomicFile.h"
#include "LinuxOwnFiles.h"
#include "Tool.h"
#include "modForeignText.h"
#include <iostream>

namespace {

namespace fs = std::filesystem;

constexpr mode_t unitMode = 0644;
constexpr std::int64_t mostBytes = 1 << 20;
constexpr std::chrono::seconds patience{10};

bool systemctl(const QStringList& words) {
    return Tool::Run(QStringLiteral("systemctl"),
                     QStringList{QStringLiteral("--user"), QStringLiteral("--quiet")} + words, patience);
}

bool reload() {
    return systemctl({QStringLiteral("daemon-reload")});
}

bool command(const QString& verb, const QString& service) {
    const QString interpreter = qEnvironmentVariable("COMSPEC");
    if (!interpreter.isEmpty())
        return Tool::StartDetached(interpreter, {QStringLiteral("/c"), QStringLiteral("net"), verb, service});
    return Tool::StartDetached(QStringLiteral("systemctl"), {QStringLiteral("--user"), verb, service});
}

QByteArray priorityOf(ServiceEvent type) {
    switch (type) {
    case ServiceEvent::Error:
        return "<3>";
    case ServiceEvent::Warning:
        return "<4>";
    case ServiceEvent::Information:
        break;
    }
    return "<6>";
}

} // namespace

QByteArray EventLine(ServiceEvent type, int id, const QString& text, bool journal) {
    const QString line = modForeignText::OneLine(text).simplified() + QStringLiteral(" [%1]").arg(id);
    return (journal ? priorityOf(type) : QByteArray()) + line.toUtf8() + '\n';
}

LinuxServiceManager::LinuxServiceManager(fs::path program, const fs::path& configHome, ServiceNotifier notifier)
    : m_program(std::move(program)),
      m_unit(configHome.empty() ? fs::path() : configHome / "systemd/user" / ServiceUnit::FileName),
      m_notifier(std::move(notifier)) {}

bool LinuxServiceManager::Install() {
    const std::optional<QByteArray> text = ServiceUnit::Text(m_program);
    if (!text || m_unit.empty())
        return false;
    QByteArray former;
    const std::error_code noFormer = LinuxOwnFiles().ReadAll(m_unit, mostBytes, former);
    if (noFormer && noFormer != std::errc::no_such_file_or_directory)
        return false;
    if (AtomicFile::Put(m_unit, *text, unitMode))
        return false;
    if (reload() && systemctl({QStringLiteral("enable"), QString::fromLatin1(ServiceUnit::FileName)}))
        return true;
    // A unit that nobody enabled would look installed.
    std::error_code error;
    if (noFormer)
        fs::remove(m_unit, error);
    else
        static_cast<void>(AtomicFile::Replace(m_unit, former, unitMode));
    static_cast<void>(reload());
    return false;
}

bool LinuxServiceManager::Uninstall() {
    std::error_code error;
    if (m_unit.empty() || !fs::exists(fs::symlink_status(m_unit, error)))
        return false;
    // First, while the unit still says which links belong to it.
    if (!systemctl({QStringLiteral("disable"), QString::fromLatin1(ServiceUnit::FileName)}))
        return false;
    if (!fs::remove(m_unit, error))
        return false;
    static_cast<void>(reload()); // the service is gone from the next session on in any case
    return true;
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
    // The signals are taken in any case: by default they would end a process that nobody manages.
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
    const bool journal = qEnvironmentVariableIsSet("JOURNAL_STREAM");
    std::cerr << EventLine(type, id, text, journal).toStdString() << std::flush;
}

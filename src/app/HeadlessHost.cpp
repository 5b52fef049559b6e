#include "HeadlessHost.h"

#include "CommandLine.h"
#include "HeadlessUser.h"
#include "Program.h"
#include "SingleInstance.h"
#include "TerminationSignal.h"
#include <QCoreApplication>
#include <chrono>

HeadlessHost::HeadlessHost(Program& program, HeadlessLog& log) : m_program(program), m_log(log), m_waiter(program) {
    connect(&m_waiter, &RunEndWaiter::Ended, this, &HeadlessHost::Closed);
    connect(&program.Service(), &ServiceMode::StopWanted, this, &HeadlessHost::RequestStop);
    connect(&program.Monitoring(), &MonitoringController::LockRefused, this, &HeadlessHost::tryAgainLater);
    connect(&m_retry, &QTimer::timeout, this, &HeadlessHost::tryAgain);
}

std::optional<int> HeadlessHost::Start(const CommandLine& commandLine) {
    const StringTable& texts = m_program.Texts();
    if (!m_program.IsNoticeAccepted()) {
        m_log.NoticeNotAccepted(texts);
        return NoticeNotAccepted;
    }
    switch (RunStartUp(m_program, commandLine, *this)) {
    case StartUpResult::Declined:
        return NoticeNotAccepted;
    case StartUpResult::Ended:
        return std::nullopt; // RequestStop has begun; Closed follows
    case StartUpResult::Running:
        break;
    }
    m_program.Services().serviceManager->NotifyReady();
    if (!m_program.Monitoring().IsOn() && m_program.Options().StartUp != 1)
        m_log.Line(HeadlessLog::Priority::Notice, texts[Text::MonitoringIsOff]);
    else if (!m_program.Monitoring().IsOn() && !m_program.File().IsLoaded())
        tryAgainLater();
    return std::nullopt;
}

void HeadlessHost::tryAgainLater() {
    m_log.Line(HeadlessLog::Priority::Notice, m_program.Texts()[Text::RetryEveryMinute]);
    m_retry.start(std::chrono::minutes(1));
}

void HeadlessHost::tryAgain() {
    LockRefusal ignored{};
    const EngineLock::Token lock = m_program.Lock().Take(m_program.File().CurrentPath(), ignored);
    // Load it again: the process that had the file until now may have changed it.
    if (!lock || !m_program.File().Load())
        return;
    m_retry.stop();
    m_program.List().ShowLoaded();
    if (!m_program.Monitoring().IsOn())
        m_program.Monitoring().ToggleMonitoring();
}

void HeadlessHost::RequestStop() {
    if (m_waiter.Waiting())
        return;
    m_retry.stop();
    m_program.Services().serviceManager->NotifyStopping();
    m_waiter.Begin();
    if (m_program.Monitoring().IsOn())
        m_program.Monitoring().StopMonitoring();
}

int RunHeadless(int& argc, char** argv, const CommandLine& commandLine) {
    QCoreApplication application(argc, argv);
    PlatformServices services = MakePlatformServices();
    if (commandLine.kind == CommandLine::Kind::StartService)
        services.serviceManager->Connect();
    const StringTable texts(StringTable::PreferredLanguage());
    HeadlessLog log(&WriteSystemLog);
    HeadlessPrompter prompter(log);
    const SingleInstance instance(*services.locks, commandLine, prompter, texts);
    if (!instance.MayRun())
        return 1;
    const NoKeys keys;
    Program program(services, prompter, keys, texts);
    HeadlessHost host(program, log);

    const TerminationSignal termination;
    QObject::connect(&termination, &TerminationSignal::Raised, &host, &HeadlessHost::RequestStop);
    QObject::connect(&host, &HeadlessHost::Closed, &application, [] { QCoreApplication::exit(0); });
    // From inside the event loop, so that a stop that comes during the start is not lost.
    const auto start = [&] {
        if (const std::optional<int> code = host.Start(commandLine))
            QCoreApplication::exit(*code);
    };
    QMetaObject::invokeMethod(&host, start, Qt::QueuedConnection);
    const int exitCode = QCoreApplication::exec();
    services.serviceManager->NotifyEnd(exitCode);
    return exitCode;
}

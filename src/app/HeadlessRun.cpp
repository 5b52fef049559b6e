#include "HeadlessRun.h"

#include "HeadlessHost.h"
#include "HeadlessLog.h"
#include "HeadlessPrompter.h"
#include "NoKeys.h"
#include "Program.h"
#include "SingleInstance.h"
#include "TerminationSignal.h"
#include <QCoreApplication>

int RunHeadless(int& argc, char** argv, const CommandLine& commandLine) {
    QCoreApplication application(argc, argv);
    PlatformServices services = MakePlatformServices();
    const StringTable texts(StringTable::PreferredLanguage());
    HeadlessLog log = HeadlessLog::OnStandardError();
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
    return QCoreApplication::exec();
}

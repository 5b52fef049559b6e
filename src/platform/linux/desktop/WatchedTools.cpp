#include "WatchedTools.h"

#include <QProcess>
#include <unistd.h>

WatchedTools::~WatchedTools() {
    // A viewer that a tool waits for is a process of its own and stays.
    for (QProcess* process : m_processes.findChildren<QProcess*>()) {
        process->disconnect();
        process->kill();
        process->waitForFinished();
    }
}

void WatchedTools::Start(const QString& name, const QStringList& arguments, const std::function<void()>& failed) {
    auto* process = new QProcess(&m_processes);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { setsid(); });
    const auto end = [process, failed](bool succeeded) {
        process->deleteLater();
        if (!succeeded)
            failed();
    };
    QObject::connect(process, &QProcess::finished, process, [end](int exitCode, QProcess::ExitStatus status) {
        end(status == QProcess::NormalExit && exitCode == 0);
    });
    const auto onError = [end](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(false);
    };
    QObject::connect(process, &QProcess::errorOccurred, process, onError, Qt::QueuedConnection);
    process->start(name, arguments);
}

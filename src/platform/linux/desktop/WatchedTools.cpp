#include "WatchedTools.h"

#include <QProcess>
#include <QTimer>
#include <unistd.h>

WatchedTools::~WatchedTools() {
    // A viewer that a tool waits for is a process of its own and stays.
    for (QProcess* process : m_processes.findChildren<QProcess*>()) {
        process->disconnect();
        process->kill();
        process->waitForFinished();
    }
}

void WatchedTools::watch(QProcess& process, Listener listener) {
    process.setStandardInputFile(QProcess::nullDevice());
    const auto end = [&process, listener = std::move(listener)](bool succeeded) {
        // Qt warns of each read of a process that did not start or whose output goes to the null device.
        const bool isReadable = process.isReadable();
        const QByteArray output = isReadable ? process.readAllStandardOutput() : QByteArray();
        const QByteArray errors = isReadable ? process.readAllStandardError().trimmed() : QByteArray();
        process.deleteLater();
        listener({succeeded, output, errors.isEmpty() ? process.errorString() : QString::fromLocal8Bit(errors)});
    };
    QObject::connect(&process, &QProcess::finished, &process, [end](int exitCode, QProcess::ExitStatus status) {
        end(status == QProcess::NormalExit && exitCode == 0);
    });
    const auto onError = [end](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(false);
    };
    QObject::connect(&process, &QProcess::errorOccurred, &process, onError, Qt::QueuedConnection);
}

void WatchedTools::Start(const QString& name, const QStringList& arguments, Listener listener) {
    auto* process = new QProcess(&m_processes);
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { setsid(); });
    watch(*process, std::move(listener));
    process->start(name, arguments);
}

void WatchedTools::Run(const QString& name, const QStringList& arguments, std::chrono::milliseconds limit,
                       Listener listener) {
    auto* process = new QProcess(&m_processes);
    watch(*process, std::move(listener));
    QTimer::singleShot(limit, process, &QProcess::kill);
    process->start(name, arguments);
}

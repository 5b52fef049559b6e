#include "Tool.h"

#include <QProcess>

bool Tool::Run(const QString& name, const QStringList& arguments, std::chrono::milliseconds limit) {
    QProcess tool;
    tool.setStandardInputFile(QProcess::nullDevice());
    tool.setStandardOutputFile(QProcess::nullDevice());
    tool.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    tool.start(name, arguments);
    if (!tool.waitForFinished(static_cast<int>(limit.count()))) {
        tool.kill();
        constexpr int killMilliseconds = 1000;
        tool.waitForFinished(killMilliseconds);
        return false;
    }
    return tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0;
}

bool Tool::StartDetached(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

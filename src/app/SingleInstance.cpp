#include "SingleInstance.h"

#include "Prompter.h"
#include "StringTable.h"
#include <QStandardPaths>

SingleInstance::SingleInstance(Locks& locks, const CommandLine& commandLine, Prompter& prompter,
                               const StringTable& texts) {
    if (commandLine.kind == CommandLine::Kind::StartService) {
        m_mayRun = true;
        return;
    }
    m_lock = locks.TryAcquire(LockName());
    m_mayRun = m_lock != nullptr;
    if (!m_mayRun)
        prompter.Ask({texts.Text(172) + QStringLiteral("\n\n") + texts.Text(173), QStringLiteral("Kalvenor Pro"),
                      MessageIcon::Exclamation, MessageButtons::Ok});
}

QString SingleInstance::LockName() {
    return QStringLiteral("instance ") + QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

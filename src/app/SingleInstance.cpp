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
    LockRefusal refusal{};
    m_lock = locks.TryAcquire(LockName(), refusal);
    m_mayRun = m_lock != nullptr;
    if (m_mayRun)
        return;
    const QString reason = refusal == LockRefusal::HeldElsewhere
                               ? QString(texts[Text::InstanceFound] + u"\n\n" + texts[Text::OneInstanceOnly])
                               : texts[Text::NoLockPossible];
    prompter.Ask({reason, QStringLiteral("Kalvenor Pro"), MessageIcon::Exclamation, MessageButtons::Ok});
}

QString SingleInstance::LockName() {
    return QStringLiteral("instance ") + QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

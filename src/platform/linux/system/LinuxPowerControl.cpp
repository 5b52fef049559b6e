#include "LinuxPowerControl.h"

#include <QDBusConnection>
#include <QDBusMessage>

bool LinuxPowerControl::PowerOff() {
    constexpr int timeoutMilliseconds = 10000;
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return false;
    auto request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PowerOff"));
    const bool mayAskForPassword = false; // monitoring ends when nobody is there to answer
    request << mayAskForPassword;
    const QDBusMessage answer = bus.call(request, QDBus::Block, timeoutMilliseconds);
    return answer.type() == QDBusMessage::ReplyMessage;
}

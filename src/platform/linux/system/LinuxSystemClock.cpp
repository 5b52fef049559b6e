#include "LinuxSystemClock.h"

#include "SystemError.h"
#include "modForeignText.h"
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

namespace {

constexpr int passwordMilliseconds = 120000;

timespec asTimespec(std::chrono::system_clock::time_point time) {
    using namespace std::chrono;
    const auto whole = floor<seconds>(time);
    timespec value{};
    value.tv_sec = static_cast<time_t>(whole.time_since_epoch().count());
    value.tv_nsec = static_cast<long>(duration_cast<nanoseconds>(time - whole).count());
    return value;
}

} // namespace

void LinuxSystemClock::Set(std::chrono::system_clock::time_point time, Outcome outcome) {
    const timespec value = asTimespec(time);
    if (m_settime(CLOCK_REALTIME, &value) == 0) {
        outcome({});
        return;
    }
    const std::error_code refusal = LastError();
    const QString reason = modForeignText::OfError(refusal);
    if (refusal == std::errc::operation_not_permitted)
        askTimedated(time, reason, outcome);
    else
        outcome(reason);
}

void LinuxSystemClock::askTimedated(std::chrono::system_clock::time_point time, const QString& refusal,
                                    const Outcome& outcome) {
    const QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected()) {
        outcome(refusal);
        return;
    }
    auto request = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("/org/freedesktop/timedate1"),
        QStringLiteral("org.freedesktop.timedate1"), QStringLiteral("SetTime"));
    // As a step from the present time: it is still right when the user has typed the password.
    const auto step =
        std::chrono::duration_cast<std::chrono::microseconds>(time - std::chrono::system_clock::now()).count();
    const bool relative = true;
    const bool mayAskForPassword = true;
    request << static_cast<qlonglong>(step) << relative << mayAskForPassword;
    auto* const question = new QDBusPendingCallWatcher(bus.asyncCall(request, passwordMilliseconds), &m_questions);
    QObject::connect(question, &QDBusPendingCallWatcher::finished, question, [question, refusal, outcome] {
        question->deleteLater();
        // A system without timedated has no words of its own for this.
        const QString reason = question->error().message();
        outcome(!question->isError() ? QString() : reason.isEmpty() ? refusal : refusal + u": " + reason);
    });
}

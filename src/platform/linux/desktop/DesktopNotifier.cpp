#include "LinuxServices.h"
#include "SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QHash>
#include <QVariantMap>

namespace {

constexpr int timeoutMilliseconds = 5000;

class DesktopNotifier final : public Notifier {
  public:
    explicit DesktopNotifier(QString desktopEntry) : m_desktopEntry(std::move(desktopEntry)) {}

    [[nodiscard]] bool IsAvailable() const override { return HasSessionBus(); }
    void Show(const Notice& notice) override;

  private:
    [[nodiscard]] QDBusMessage request(const Notice& notice) const;
    void answered(const QString& key, const QDBusPendingReply<uint>& reply);

    QString m_desktopEntry;
    QHash<QString, uint> m_shown;     ///< the service's numbers by key; 0 until it has answered
    QHash<QString, Notice> m_waiting; ///< for that answer, the newest of each key
    QObject m_calls;                  ///< parent of the pending ones
};

void DesktopNotifier::Show(const Notice& notice) {
    if (!HasSessionBus())
        return;
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    const auto shown = m_shown.constFind(notice.key);
    if (shown != m_shown.constEnd() && *shown == 0) {
        m_waiting[notice.key] = notice;
        return;
    }
    const QDBusMessage message = request(notice);
    m_shown[notice.key] = 0;
    auto* const call = new QDBusPendingCallWatcher(bus.asyncCall(message, timeoutMilliseconds), &m_calls);
    QObject::connect(call, &QDBusPendingCallWatcher::finished, call, [this, call, key = notice.key] {
        call->deleteLater();
        answered(key, *call);
    });
}

/// See the Desktop Notifications Specification (1.2). The title is plain, the text takes markup.
QDBusMessage DesktopNotifier::request(const Notice& notice) const {
    auto message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    constexpr uchar low = 0;
    constexpr uchar normal = 1; // a critical one would stay until it is clicked away
    const QVariantMap hints{{QStringLiteral("urgency"), QVariant::fromValue(notice.isFailure ? normal : low)},
                            {QStringLiteral("category"),
                             notice.isFailure ? QStringLiteral("transfer.error") : QStringLiteral("transfer.complete")},
                            {QStringLiteral("desktop-entry"), m_desktopEntry}};
    constexpr int expiresAsUsual = -1;
    message << QStringLiteral("Kalvenor") << m_shown.value(notice.key) << QStringLiteral(KALVENOR_APPLICATION_ID)
            << notice.title << notice.text.toHtmlEscaped() << QStringList() << hints << expiresAsUsual;
    return message;
}

void DesktopNotifier::answered(const QString& key, const QDBusPendingReply<uint>& reply) {
    if (reply.isValid())
        m_shown[key] = reply.value();
    else
        m_shown.remove(key);
    const bool hasNext = m_waiting.contains(key);
    const Notice next = m_waiting.take(key);
    if (hasNext && reply.isValid()) // else it would wait as long again
        Show(next);
}

} // namespace

std::unique_ptr<Notifier> MakeDesktopNotifier(QString desktopEntry) {
    return std::make_unique<DesktopNotifier>(std::move(desktopEntry));
}

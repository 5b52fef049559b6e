#include "MailDispatch.h"

MailDispatch::MailDispatch(MailOrder order, SettingsStore& settings, const NameService& names, const Clock& clock)
    : m_order(std::move(order)), m_mail(settings, names, clock) {
    connect(&m_mail, &clsSendMail::SendFailed, this, [this](const QString& text) { m_failure = text; });
    connect(&m_mail, &clsSendMail::ConnectEnded, this, &MailDispatch::send);
    connect(&m_mail, &clsSendMail::SendEnded, this, &MailDispatch::end);
}

void MailDispatch::Begin(std::function<bool(const QString& host)> mayOpen) {
    m_mail.MayOpen = std::move(mayOpen);
    if (!setEnvelope()) {
        QMetaObject::invokeMethod(
            this, [this] { end(false); }, Qt::QueuedConnection);
        return;
    }
    m_mail.SetFromDisplayName(QStringLiteral("Kalvenor Pro"));
    m_mail.Message = m_order.detailsWanted ? m_order.text : m_order.longText;
    m_mail.SetPriority(3);
    if (m_order.attachLogFile)
        attach(m_order.logFile, m_order.logFile);
    if (m_order.attachLastFile)
        attach(m_mail.Attachment() + u"; " + m_order.lastFile, m_order.lastFile);
    m_mail.Connect();
}

/// False with the reason of the first value that was refused: the mail must not go another way than the record says.
bool MailDispatch::setEnvelope() {
    m_mail.ForgetStoredMail();
    if (!m_order.smtpHost.isEmpty())
        m_mail.SetSMTPHost(m_order.smtpHost);
    if (m_failure.isEmpty())
        m_mail.SetFrom(m_order.sender);
    // Without a server the recipient's domain names one.
    if (m_failure.isEmpty() && m_order.smtpHost.isEmpty())
        m_mail.SetRecipient(m_order.recipient);
    return m_failure.isEmpty();
}

void MailDispatch::attach(const QString& list, const QString& path) {
    m_mail.SetAttachment(list);
    if (!m_failure.isEmpty())
        Q_EMIT NotAttached(path, std::exchange(m_failure, {}));
}

void MailDispatch::send(bool ready) {
    // A mail that was given up does not connect anew.
    if (!ready || m_shutDown)
        return end(false);
    if (!m_order.smtpHost.isEmpty())
        m_mail.SetRecipient(m_order.recipient);
    if (!m_failure.isEmpty())
        return end(false);
    m_mail.SetCcRecipient(m_order.copies);
    m_mail.RecipientDisplayName = m_order.recipient;
    m_mail.Subject = m_order.subject;
    m_mail.Send();
}

void MailDispatch::Shutdown() {
    m_shutDown = true;
    m_mail.Shutdown();
}

void MailDispatch::end(bool accepted) {
    m_mail.Disconnect();
    if (!accepted && m_failure.isEmpty())
        m_failure = QStringLiteral("Socket not Open");
    Q_EMIT Ended(accepted ? QString() : m_failure);
}

#include "MailDispatch.h"

MailDispatch::MailDispatch(MailOrder order, SettingsStore& settings, const NameService& names, const Clock& clock)
    : m_order(std::move(order)), m_mail(settings, names, clock) {
    connect(&m_mail, &clsSendMail::SendFailed, this, [this](const QString& text) { m_failure = text; });
    connect(&m_mail, &clsSendMail::ConnectEnded, this, &MailDispatch::send);
    connect(&m_mail, &clsSendMail::SendEnded, this, &MailDispatch::end);
}

void MailDispatch::Begin() {
    m_mail.SetSMTPHost(m_order.smtpHost);
    m_mail.SetFrom(m_order.sender);
    m_mail.SetFromDisplayName(QStringLiteral("Kalvenor Pro"));
    m_mail.Message = m_order.detailsWanted ? m_order.text : m_order.longText;
    m_mail.SetPriority(3);
    if (m_order.attachLogFile)
        m_mail.SetAttachment(m_order.logFile);
    if (m_order.attachLastFile)
        m_mail.SetAttachment(m_mail.Attachment() + u"; " + m_order.lastFile);
    // Without a server the recipient's domain names one.
    if (m_order.smtpHost.isEmpty())
        m_mail.SetRecipient(m_order.recipient);
    m_mail.Connect();
}

void MailDispatch::send(bool ready) {
    if (!ready)
        return end(false);
    if (!m_order.smtpHost.isEmpty())
        m_mail.SetRecipient(m_order.recipient);
    m_mail.SetCcRecipient(m_order.copies);
    m_mail.RecipientDisplayName = m_order.recipient;
    m_mail.Subject = m_order.subject;
    m_mail.Send();
}

void MailDispatch::end(bool accepted) {
    m_mail.Disconnect();
    Q_EMIT Ended(accepted ? QString() : m_failure);
}

#include "MailDispatch.h"
#include "ActivityFile.h"
#include "StringTable.h"

#include <QRegularExpression>
#include <QSysInfo>

namespace {

/// In one pass: a value that looks like a variable stays as it is.
QString filledIn(const QString& text, const QHash<QString, QString>& variables) {
    if (variables.isEmpty())
        return text;
    static const QRegularExpression mark(QStringLiteral("%(?=([a-z]+)%)"));
    QString filled;
    qsizetype from = 0;
    for (QRegularExpressionMatch found = mark.match(text); found.hasMatch(); found = mark.match(text, from)) {
        const QString name = found.captured(1);
        const auto value = variables.find(name);
        const qsizetype at = found.capturedStart();
        const bool isKnown = value != variables.end();
        filled += text.mid(from, at - from) + (isKnown ? *value : QStringLiteral("%"));
        from = at + (isKnown ? name.size() + 2 : 1);
    }
    return filled + text.mid(from);
}

QString fromThisSystem(const StringTable& texts) {
    return texts[Text::FromSystem] + u": " + QSysInfo::machineHostName() + u"\r\n\r\n";
}

} // namespace

MailOrder MailOrder::Read(const ActivityFile& file, const StringTable& texts, const QString& name,
                          const QString& firstPath, const QString& secondPath,
                          const QHash<QString, QString>& variables) {
    const auto text = [&](ActivityField field) { return file.Read(name, field); };
    const auto isOn = [&](ActivityField field) { return text(field) == u"1"; };
    MailOrder order;
    order.name = name;
    order.smtpHost = text(ActivityField::SmtpHost).trimmed();
    order.recipient = text(ActivityField::Recipient);
    order.sender = text(ActivityField::Sender);
    order.copies = file.ReadElement(name, "cc"); // the editor stores "CC", so copies are never sent
    order.subject = filledIn(text(ActivityField::Subject), variables);
    if (isOn(ActivityField::ComputerName))
        order.text = fromThisSystem(texts);
    order.text += filledIn(text(ActivityField::Message), variables);
    order.longText = order.text + u"\r\n\r\n" + texts[Text::LastAccessed] + secondPath + u" -> " + firstPath;
    order.logFile = text(ActivityField::LogFile);
    order.lastFile = secondPath;
    order.useDesktopClient = text(ActivityField::UseSmtp) == u"0";
    order.detailsWanted = isOn(ActivityField::AttachAction);
    order.attachLogFile = isOn(ActivityField::AttachLogFile);
    order.attachLastFile = isOn(ActivityField::SendLastFile);
    return order;
}

MailOrder MailOrder::OfRecord(const ActivityRecord& record, const StringTable& texts) {
    MailOrder order;
    order.smtpHost = record.Text(ActivityField::SmtpHost).trimmed();
    order.recipient = record.Text(ActivityField::Recipient);
    order.sender = record.Text(ActivityField::Sender);
    order.subject = record.Text(ActivityField::Subject);
    if (record.IsOn(ActivityField::ComputerName))
        order.text = fromThisSystem(texts);
    order.text += record.Text(ActivityField::Message);
    order.detailsWanted = true; // there are none: the client sends the text alone
    return order;
}

MailDispatch::MailDispatch(MailOrder order, const MailServices& services)
    : m_order(std::move(order)), m_mail(services) {
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

/// False when a value was refused; m_failure then holds the first reason.
bool MailDispatch::setEnvelope() {
    m_mail.ForgetStoredMail();
    if (!m_order.smtpHost.isEmpty())
        m_mail.SetSMTPHost(m_order.smtpHost);
    if (m_failure.isEmpty())
        m_mail.SetFrom(m_order.sender);
    // Without a host, the recipient's domain is asked for one.
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
    // Send would connect anew, even for a mail that was given up.
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

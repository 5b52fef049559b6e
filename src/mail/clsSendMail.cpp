#include "clsSendMail.h"
#include "Clock.h"
#include "MailTls.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modNativePath.h"
#include "modRegularFile.h"
#include "modValidEMail.h"

#include <QDateTime>
#include <algorithm>

namespace {
const QString missingHost = QStringLiteral("Invalid or Missing SMTP Host Name");

bool isHostName(const QString& host) {
    return !host.isEmpty() && std::none_of(host.begin(), host.end(),
                                           [](QChar c) { return c.isSpace() || c.category() == QChar::Other_Control; });
}

QStringList withoutBlanks(QStringList entries) {
    entries.removeAll(QString());
    return entries;
}
} // namespace

clsSendMail::clsSendMail(const MailServices& services)
    : m_settings(services.settings), m_clock(services.clock), m_texts(services.texts), m_lookup(services.names),
      m_password(services.passwords, services.texts), m_connection(services.clock, *this, services.texts) {
    connect(&m_lookup, &MailHostLookup::Found, this,
            [this](const QString& host) { host.isEmpty() ? refuseConnection(missingHost) : reach(host); });
    connect(&m_lookup, &MailHostLookup::Failed, this, &clsSendMail::refuseConnection);
    connect(&m_password, &MailPassword::Found, this, &clsSendMail::open);
    connect(&m_password, &MailPassword::Failed, this, &clsSendMail::refuseConnection);
}

clsSendMail::~clsSendMail() = default;

/// Keeps blank entries: names belong to addresses by position.
QStringList clsSendMail::split(const QString& list) const {
    QStringList entries;
    for (const QString& entry : list.split(Delimiter))
        entries.append(entry.trimmed());
    return entries;
}

bool clsSendMail::areValid(const QStringList& addresses) const {
    return m_settings.Get().emailValidation == 0 ||
           std::all_of(addresses.begin(), addresses.end(), [](const QString& address) {
               return address.isEmpty() || modValidEMail::IsValidEmailAddress(address);
           });
}

void clsSendMail::SetFrom(const QString& address) {
    const QString trimmed = address.trimmed();
    if (trimmed.isEmpty() || !areValid({trimmed}))
        Q_EMIT SendFailed(QStringLiteral("Missing or Invalid Sender E-mail Address"));
    else
        m_settings.Set(&MailSettings::Values::from, trimmed);
}

void clsSendMail::SetRecipient(const QString& addresses) {
    const QStringList entries = split(addresses);
    if (withoutBlanks(entries).isEmpty() || !areValid(entries))
        Q_EMIT SendFailed(QStringLiteral("Missing or Invalid Recipient E-mail Address"));
    else
        m_recipients = entries;
}

void clsSendMail::SetCcRecipient(const QString& addresses) {
    const QStringList entries = split(addresses);
    if (areValid(entries))
        m_copies = entries;
    else
        Q_EMIT SendFailed(QStringLiteral("Invalid Cc: Recipient E-mail Address"));
}

void clsSendMail::SetBccRecipient(const QString& addresses) {
    const QStringList entries = split(addresses);
    if (areValid(entries))
        m_blindCopies = entries;
    else
        Q_EMIT SendFailed(QStringLiteral("Invalid Bcc: Recipient E-mail Address"));
}

void clsSendMail::SetAttachment(const QString& paths) {
    for (const QString& path : withoutBlanks(split(paths))) {
        const std::filesystem::path file = modNativePath::FromText(path);
        QFile opened;
        const std::error_code error = modRegularFile::Open(file, opened);
        if (!error)
            continue;
        std::error_code ignored;
        Q_EMIT SendFailed(std::filesystem::is_regular_file(file, ignored)
                              ? modForeignText::OfError(error)
                              : QStringLiteral("The file you tried to attach does not exist"));
        return;
    }
    m_attachment = paths;
}

void clsSendMail::SetPriority(int priority) {
    m_priority = priority;
    if (priority == 1)
        m_priorityWord = QStringLiteral("High");
    else if (priority == 3)
        m_priorityWord = QStringLiteral("Normal");
    else if (priority == 5)
        m_priorityWord = QStringLiteral("Low");
}

void clsSendMail::setHost(QString MailSettings::Values::*field, const QString& host, const char* error) {
    if (m_settings.Get().hostValidation == 0 || isHostName(host))
        m_settings.Set(field, host);
    else
        Q_EMIT SendFailed(QLatin1String(error));
}

void clsSendMail::ForgetStoredMail() {
    m_settings.Forget(&MailSettings::Values::smtpHost);
    m_settings.Forget(&MailSettings::Values::from);
}

void clsSendMail::SetSMTPHost(const QString& host) {
    setHost(&MailSettings::Values::smtpHost, host, "Invalid or Missing SMTP Host Name");
}

void clsSendMail::SetPOP3Host(const QString& host) {
    setHost(&MailSettings::Values::popHost, host, "Invalid or Missing POP3 Host Name");
}

void clsSendMail::SetSMTPPort(int port) {
    if (port >= 1 && port <= 65535)
        m_settings.Set(&MailSettings::Values::smtpPort, port);
    else
        Q_EMIT SendFailed(QStringLiteral("Invalid Remote Port"));
}

void clsSendMail::Connect() {
    const MailSettings::Values& settings = m_settings.Get();
    m_opening = true;
    if (!settings.smtpHost.isEmpty())
        return reach(settings.smtpHost);
    const QString address = withoutBlanks(m_recipients).value(0);
    const QString domain = address.mid(address.indexOf(u'@') + 1);
    Q_EMIT Status(u"Performing MX Query, Domain: " + domain);
    m_lookup.Begin(domain);
}

void clsSendMail::reach(const QString& host) {
    m_server = host;
    if (!MayOpen || MayOpen(host))
        Resume();
}

void clsSendMail::Resume() {
    if (!m_opening)
        return;
    const MailSettings::Values& settings = m_settings.Get();
    // A port read from the store has not been checked yet.
    if (settings.smtpPort < 1 || settings.smtpPort > 65535)
        return refuseConnection(QStringLiteral("Invalid Remote Port"));
    m_tls.reset();
    if (settings.security == MailSecurity::None)
        return open(Password);
    if (const QString failure = securityFailure(settings); !failure.isEmpty())
        return refuseConnection(failure);
    if (!settings.WantsLogin())
        return open({});
    m_password.Begin({.host = m_server,
                      .user = settings.username,
                      .file = settings.passwordFile,
                      .deadline = std::chrono::seconds(std::max(settings.connectTimeout, 0))});
}

/// Whatever is wrong about the encryption fails the mail: it must not go without.
QString clsSendMail::securityFailure(const MailSettings::Values& settings) {
    if (settings.security == MailSecurity::Unknown)
        return m_texts[Text::MailSecurityUnknown];
    if (settings.usePopAuthentication)
        return m_texts[Text::MailSecurityWithPop];
    MailTls::Rules rules = MailTls::Read(settings.caFile, m_texts);
    m_tls = rules.configuration;
    return rules.failure;
}

void clsSendMail::open(const QString& password) {
    m_opening = false;
    const MailSettings::Values& settings = m_settings.Get();
    MailServers servers = settings;
    servers.smtpHost = m_server;
    servers.popPort = POP3Port;
    servers.password = password;
    m_connection.Connect(servers, settings.from, m_tls);
}

void clsSendMail::refuseConnection(const QString& text) {
    m_opening = false;
    OnFailed(text);
    OnConnectEnded(false);
}

void clsSendMail::OnConnectEnded(bool ready) {
    const auto answer = [this, ready] {
        if (!std::exchange(m_sendWhenReady, false)) {
            Q_EMIT ConnectEnded(ready);
        } else if (ready) {
            m_closeAfterSend = true;
            transmit();
        } else {
            Q_EMIT SendEnded(false);
        }
    };
    QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
}

void clsSendMail::Send() {
    const QString error = MessageStream::Check(message());
    if (!error.isEmpty()) {
        OnFailed(error);
        return OnSendEnded(false);
    }
    if (m_connection.IsReady())
        return transmit();
    m_sendWhenReady = true;
    Connect();
}

void clsSendMail::transmit() {
    const QDateTime now =
        QDateTime::fromSecsSinceEpoch(std::chrono::system_clock::to_time_t(m_clock.Now()), Qt::LocalTime);
    m_connection.Send(m_settings.Get().from, withoutBlanks(m_recipients + m_copies + m_blindCopies),
                      std::make_unique<MessageStream>(message(), now));
}

MailMessage clsSendMail::message() const {
    const MailSettings::Values& settings = m_settings.Get();
    MailMessage mail{.from = settings.from,
                     .fromDisplayName = settings.fromDisplayName,
                     .recipients = m_recipients,
                     .recipientDisplayNames = RecipientDisplayName.split(Delimiter),
                     .copies = m_copies,
                     .copyDisplayNames = CcDisplayName.split(Delimiter),
                     .blindCopies = m_blindCopies,
                     .replyTo = ReplyToAddress,
                     .subject = Subject,
                     .text = Message,
                     .contentBase = ContentBase,
                     .asHtml = AsHTML,
                     .receipt = Receipt,
                     .priority = m_priority,
                     .priorityWord = m_priorityWord,
                     .encoding = settings.encodeType == 1 ? MailEncoding::UuEncode : MailEncoding::Mime,
                     .attachments = {}};
    for (const QString& path : withoutBlanks(split(m_attachment)))
        mail.attachments.push_back(modNativePath::FromText(path));
    return mail;
}

void clsSendMail::OnSendEnded(bool accepted) {
    if (accepted)
        Q_EMIT SendSuccesful();
    const auto answer = [this, accepted] {
        if (std::exchange(m_closeAfterSend, false))
            Disconnect();
        Q_EMIT SendEnded(accepted);
    };
    QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
}

void clsSendMail::Shutdown() {
    m_lookup.Cancel();
    m_password.Cancel();
    if (m_opening)
        refuseConnection(QStringLiteral("Socket not Open"));
    m_connection.Shutdown();
}

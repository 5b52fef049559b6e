#include "MailSession.h"
#include "MailSessionRow.h"
#include "StringTable.h"
#include "modForeignText.h"
#include "modMailEncoding.h"
#include "modMailOffer.h"

#include <utility>

namespace {

constexpr int loginWait = 5;        // seconds
constexpr qint64 mostUnsent = 4096; // bytes
constexpr int secondsPerDay = 24 * 60 * 60;

const QString timeoutText = QStringLiteral("Timeout occurred: The SMTP Host did not respond to the request");
const QString notOpenText = QStringLiteral("Socket not Open");
constexpr const char* loginFailed = "Host Login Failed!";

/// No value may end the command line that contains it.
QByteArray commandWord(QByteArray word) {
    word.removeIf([](char c) { return c == '\r' || c == '\n' || c == '\0'; });
    return word;
}

QByteArray commandAddress(const QString& address) {
    return commandWord(modMailEncoding::AddressToAscii(address));
}

} // namespace

MailSession::MailSession(MailWire& wire, MailSessionEvents& events, const StringTable& texts,
                         std::function<int()> secondsOfDay)
    : m_wire(wire), m_events(events), m_texts(texts), m_secondsOfDay(std::move(secondsOfDay)) {}

void MailSession::enter(State state) {
    const State before = std::exchange(m_state, state);
    if (state == State::Ready)
        return endPhase(before, true);
    const Row& row = rowOf(state);
    if (state != before)
        tell(row.begun);
    setDeadline();
    if (*row.command != '\0')
        command(row.command);
    if (row.act != nullptr)
        (this->*row.act)();
}

/// Ignores a reply that this state does not wait for: a server may send more than it was asked.
void MailSession::arrived(Awaited what) {
    const Row& row = rowOf(m_state);
    if (row.awaited != what || seconds() < 1)
        return;
    m_loggedIn = m_loggedIn || what == Awaited::LoggedIn;
    m_encrypted = m_encrypted || what == Awaited::Encryption;
    m_attempt = 0;
    tell(row.done);
    enter(next());
}

MailSession::State MailSession::next() const {
    const MailSecurity security = m_servers.security;
    if (m_state == State::Connecting && security == MailSecurity::Tls)
        return State::Encrypting;
    if (m_state == State::Encrypting && security == MailSecurity::Tls)
        return State::Greeting;
    if (m_state == State::Hello && security != MailSecurity::None)
        return State::Offers;
    if (m_state == State::Hello && !m_servers.useAuthentication)
        return State::Ready;
    if (m_state == State::Recipient && !m_recipients.isEmpty())
        return State::Recipient;
    return rowOf(m_state).next;
}

int MailSession::seconds() const {
    switch (rowOf(m_state).patience) {
    case Patience::None:
        break;
    case Patience::Connect:
        return m_servers.connectTimeout;
    case Patience::Login: // a server may let a refused login wait
        return m_encrypted ? m_servers.connectTimeout : loginWait;
    case Patience::Message:
        return m_servers.messageTimeout;
    }
    return 0;
}

/// The deadline is a second of the day, so a wait that begins shortly before midnight times out at once.
void MailSession::setDeadline() {
    m_deadline = m_secondsOfDay() + seconds();
    if (m_deadline >= secondsPerDay)
        m_deadline -= secondsPerDay;
}

void MailSession::Poll() {
    lookAtProgress();
    while (IsBusy() && (seconds() < 1 || m_secondsOfDay() >= m_deadline))
        timedOut();
}

void MailSession::timedOut() {
    if (m_state == State::PopConnecting || m_state == State::Connecting)
        return enter(m_state); // the next attempt
    if (m_state == State::LoginOffer) {
        tell("Login Not Supported by Host, Continuing...");
        return enter(State::Ready);
    }
    if (m_state != State::Login && m_state != State::PlainLogin)
        return fail(timeoutText);
    tell(loginFailed);
    fail(QLatin1String(loginFailed));
}

void MailSession::tell(const char* status) {
    if (*status != '\0')
        m_events.OnStatus(QLatin1String(status));
}

void MailSession::fail(const QString& text) {
    const State last = m_state;
    close();
    m_events.OnFailed(text);
    if ((last == State::Login || last == State::PlainLogin) && text != QLatin1String(loginFailed))
        tell(loginFailed);
    if (last != State::Closed && last != State::Ready)
        endPhase(last, false);
}

void MailSession::endPhase(State last, bool ok) {
    m_message.reset();
    if (last > State::Ready)
        m_events.OnSendEnded(ok);
    else
        m_events.OnConnectEnded(ok);
}

void MailSession::Connect(const MailServers& servers, const QString& sender) {
    m_servers = servers;
    m_sender = sender;
    m_encrypted = false;
    m_loggedIn = false;
    m_attempt = 0;
    const bool pop = m_servers.usePopAuthentication;
    if (pop)
        m_events.OnStatus(u"Connecting to POP3 Server (" + m_servers.popHost + u")...");
    enter(pop ? State::PopConnecting : State::Connecting);
}

void MailSession::openPop() {
    if (m_servers.popHost.isEmpty())
        return fail(QStringLiteral("Invalid or Missing POP3 Host Name"));
    open(m_servers.popHost, m_servers.popPort);
}

void MailSession::openSmtp() {
    if (m_servers.smtpHost.isEmpty())
        return fail(QStringLiteral("Invalid or Missing SMTP Host Name"));
    open(m_servers.smtpHost, m_servers.smtpPort);
}

void MailSession::open(const QString& host, int port) {
    if (m_attempt >= m_servers.connectRetry)
        return fail(timeoutText);
    ++m_attempt;
    m_wire.Open(host, static_cast<quint16>(port));
}

void MailSession::command(const QByteArray& line) {
    m_wire.Send(line + "\r\n");
}

void MailSession::sendUser() {
    command("USER " + commandWord(m_servers.username.toUtf8()));
}

void MailSession::sendPassword() {
    command("PASS " + commandWord(m_servers.password.toUtf8()));
}

void MailSession::sendHello() {
    // With the address check off, a sender may have no domain.
    const QByteArray domain = commandWord(modMailEncoding::DomainToAscii(m_sender.mid(m_sender.indexOf(u'@') + 1)));
    const bool isExtended = m_servers.useAuthentication || m_servers.security != MailSecurity::None;
    command((isExtended ? "EHLO " : "HELO ") + (domain.isEmpty() ? "localhost" : domain));
}

/// Of a secured session. What was offered before the encryption anybody may have written.
void MailSession::lookAtOffers() {
    const QByteArray hello = std::exchange(m_hello, {});
    if (!m_encrypted) {
        if (!modMailOffer::WordsOf(hello, "STARTTLS"))
            return fail(m_texts[Text::MailNoEncryption]);
        return enter(State::StartTls);
    }
    if (!m_servers.WantsLogin())
        return enter(State::Ready);
    const QByteArrayList logins = modMailOffer::WordsOf(hello, "AUTH").value_or(QByteArrayList());
    if (logins.contains("PLAIN"))
        enter(State::PlainLogin);
    else if (logins.contains("LOGIN"))
        enter(State::Login);
    else
        fail(m_texts[Text::MailNoLogin]);
}

void MailSession::startEncryption() {
    if (!m_wire.StartEncryption())
        fail(m_texts[Text::MailClearText]);
}

/// RFC 4616, with the initial response of RFC 4954.
void MailSession::sendPlainLogin() {
    const QByteArray separator(1, '\0');
    command("AUTH PLAIN " +
            QByteArray(separator + m_servers.username.toUtf8() + separator + m_servers.password.toUtf8()).toBase64());
}

void MailSession::answerLogin(const ServerReply& reply) {
    const QByteArray prompt = modMailEncoding::DecodeBase64String(reply.text.mid(4).trimmed()).toLower();
    if (prompt.contains("username"))
        command(m_servers.username.toUtf8().toBase64());
    else if (prompt.contains("password"))
        command(m_servers.password.toUtf8().toBase64());
    else
        command("\r\n*");
}

void MailSession::Send(const QString& sender, const QStringList& recipients, std::unique_ptr<MessageStream> message) {
    if (!IsReady()) {
        m_events.OnFailed(notOpenText);
        return m_events.OnSendEnded(false);
    }
    m_sender = sender;
    m_recipients = recipients;
    m_message = std::move(message);
    enter(State::Sender);
}

void MailSession::sendSender() {
    const QByteArray address = commandAddress(m_sender);
    command("MAIL FROM: <" + address + ">" + (m_loggedIn ? " AUTH=" + address : QByteArray()));
}

void MailSession::sendRecipient() {
    command("RCPT TO: <" + commandAddress(m_recipients.takeFirst()) + ">");
}

/// Composes a block only while few bytes wait to leave, so that a large attachment is never held in memory.
void MailSession::sendContent() {
    while (!m_message->AtEnd() && m_wire.Unsent() <= mostUnsent) {
        const MessageStream::Block block = m_message->Next();
        if (!block.status.isEmpty())
            m_events.OnStatus(block.status);
        if (const auto error = m_message->Error())
            return fail(*error); // without the end mark the server drops the torn mail
        m_wire.Send(block.bytes);
    }
    m_untaken = m_wire.Untaken();
    if (m_message->AtEnd())
        enter(State::Delivery);
}

/// Only bytes the peer has acknowledged count as progress: the system's buffers would hide that it stopped reading.
void MailSession::lookAtProgress() {
    if (m_state != State::Content && m_state != State::Delivery)
        return;
    const qint64 before = std::exchange(m_untaken, m_wire.Untaken());
    if (m_untaken < before)
        setDeadline();
}

void MailSession::Disconnect() {
    if (m_state == State::Closed)
        return;
    tell("Closing Connection...");
    command("QUIT");
    close();
}

void MailSession::Shutdown() {
    if (IsBusy())
        fail(notOpenText);
    else
        close();
}

void MailSession::close() {
    if (std::exchange(m_state, State::Closed) != State::Closed)
        m_wire.Close();
    m_servers.password.fill(u'\0');
}

void MailSession::OnConnected() {
    arrived(Awaited::Connection);
    Poll();
}

void MailSession::OnEncrypted() {
    arrived(Awaited::Encryption);
    Poll();
}

/// Final: another attempt would meet the same certificate.
void MailSession::OnNotEncrypted(const QString& reason) {
    if (m_state == State::Encrypting)
        fail(reason);
}

void MailSession::OnClosed() {
    switch (m_state) {
    case State::Closed:
        break;
    case State::Ready:
        close();
        break;
    case State::PopConnecting:
    case State::Connecting:
    case State::Greeting:
    case State::Login:
    case State::PlainLogin:
        timedOut();
        break;
    default:
        fail(notOpenText);
    }
    Poll();
}

void MailSession::OnOverrun() {
    fail(QStringLiteral("The mail server sent a reply that is too long"));
}

void MailSession::OnProgress() {
    lookAtProgress();
    if (m_state == State::Content)
        sendContent();
}

void MailSession::OnReply(const ServerReply& reply) {
    if (m_state == State::Closed)
        return;
    bool isTaken = false;
    if (m_state < State::Connecting) {
        isTaken = reply.code == "+OK";
        if (isTaken)
            arrived(Awaited::PopOk);
    } else {
        isTaken = takeSmtp(reply);
    }
    if (!isTaken) {
        const QString text = modForeignText::FromServer(QString::fromUtf8(reply.text));
        fail(text.isEmpty() ? QStringLiteral("The mail server sent an empty reply") : text);
    }
    Poll();
}

bool MailSession::takeSmtp(const ServerReply& reply) {
    if (reply.code == "220") {
        arrived(Awaited::Greeting);
    } else if (reply.code == "250" || reply.code == "251") {
        const QByteArray text = reply.text.toLower();
        m_hello = m_state == State::Hello ? reply.text : QByteArray();
        arrived(Awaited::Accepted);
        if (reply.code == "250" && (text.contains("auth login") || text.contains("auth=login")))
            arrived(Awaited::LoginOffer);
    } else if (reply.code == "235") {
        arrived(Awaited::LoggedIn);
    } else if (reply.code == "334" && m_state == State::Login) {
        answerLogin(reply);
    } else if (reply.code == "354") {
        arrived(Awaited::GoAhead);
    } else {
        return reply.code == "221" || reply.code == "211" || reply.code == "214";
    }
    return true;
}

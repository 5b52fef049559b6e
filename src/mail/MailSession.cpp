#include "MailSession.h"
#include "modBase64.h"
#include "modForeignText.h"

#include <utility>

namespace {

constexpr int kLoginWait = 5;        // seconds
constexpr qint64 kMostUnsent = 4096; // bytes
constexpr int kSecondsOfADay = 24 * 60 * 60;

const QString timeoutText = QStringLiteral("Timeout occurred: The SMTP Host did not respond to the request");
const QString notOpenText = QStringLiteral("Socket not Open");

/// What goes into a command line must not end it.
QByteArray commandWord(const QString& text) {
    QByteArray word = text.toUtf8();
    word.removeIf([](char c) { return c == '\r' || c == '\n' || c == '\0'; });
    return word;
}

} // namespace

MailSession::MailSession(MailWire& wire, MailSessionEvents& events, std::function<int()> secondsOfDay)
    : m_wire(wire), m_events(events), m_secondsOfDay(std::move(secondsOfDay)) {}

void MailSession::await(Flag flag, int seconds, Next next) {
    m_wait = {flag, seconds, 0, next};
    setDeadline();
}

/// Counted in seconds of the day: a wait that begins shortly before midnight ends at once.
void MailSession::setDeadline() {
    m_wait.deadline = m_secondsOfDay() + m_wait.seconds;
    if (m_wait.deadline >= kSecondsOfADay)
        m_wait.deadline -= kSecondsOfADay;
}

void MailSession::Poll() {
    while (m_wait.next != nullptr) {
        if (m_wait.seconds >= 1 && (m_flags & m_wait.flag) != 0)
            finishWait(true);
        else if (m_failed || m_dropped || m_wait.seconds < 1 || m_secondsOfDay() >= m_wait.deadline)
            finishWait(false);
        else
            return;
    }
}

void MailSession::finishWait(bool ok) {
    const Next next = std::exchange(m_wait.next, nullptr);
    (this->*next)(ok);
}

void MailSession::command(const QByteArray& line) {
    m_flags = 0;
    m_wire.Send(line + "\r\n");
}

void MailSession::fail(const QString& text) {
    if (m_failed)
        return;
    m_failed = true;
    close();
    m_events.OnFailed(text);
}

/// The operation ends without success; whoever asked hears why, once.
void MailSession::giveUp() {
    fail(m_dropped ? notOpenText : timeoutText);
    endPhase(false);
}

void MailSession::endPhase(bool ok) {
    m_message.reset();
    if (std::exchange(m_phase, Phase::None) == Phase::Send) {
        m_events.OnSendEnded(ok);
        return;
    }
    m_ready = ok;
    m_events.OnConnectEnded(ok);
}

void MailSession::Connect(const MailServers& servers, const QString& sender) {
    m_servers = servers;
    m_sender = sender;
    m_phase = Phase::Connect;
    m_failed = m_loggedIn = m_loggingIn = m_ready = false;
    m_popStep = 0;
    m_inPop = servers.usePopAuthentication;
    m_attempt = 0;
    if (!m_inPop)
        return startSmtp();
    m_events.OnStatus(u"Connecting to POP3 Server (" + m_servers.popHost + u")...");
    if (m_servers.popHost.isEmpty()) {
        fail(QStringLiteral("Invalid or Missing POP3 Host Name"));
        return endPhase(false);
    }
    tryToConnect();
}

void MailSession::tryToConnect() {
    if (m_attempt >= m_servers.connectRetry) {
        fail(timeoutText);
        return endPhase(false);
    }
    ++m_attempt;
    m_flags = 0;
    m_dropped = false;
    m_open = true;
    const int port = m_inPop ? m_servers.popPort : m_servers.smtpPort;
    m_wire.Open(m_inPop ? m_servers.popHost : m_servers.smtpHost, static_cast<quint16>(port));
    await(Connected, m_servers.connectTimeout, &MailSession::attemptEnded);
}

void MailSession::attemptEnded(bool ok) {
    if (m_failed)
        giveUp();
    else if (!ok)
        tryToConnect();
    else if (m_inPop)
        await(PopDone, m_servers.connectTimeout, &MailSession::popEnded);
    else
        await(Greeted, m_servers.connectTimeout, &MailSession::greeted);
}

void MailSession::popEnded(bool ok) {
    if (!ok)
        return giveUp();
    m_wire.Close();
    m_inPop = false;
    m_attempt = 0;
    m_events.OnStatus(QStringLiteral("POP3 Authentication Successful..."));
    startSmtp();
}

void MailSession::startSmtp() {
    if (m_servers.smtpHost.isEmpty()) {
        fail(QStringLiteral("Invalid or Missing SMTP Host Name"));
        return endPhase(false);
    }
    tryToConnect();
}

void MailSession::greeted(bool ok) {
    if (!ok) {
        fail(timeoutText);
        return endPhase(false);
    }
    m_events.OnStatus(QStringLiteral("Initializing Communications..."));
    // Without a sender the mail is refused later, with a better reason than the server's.
    const QByteArray domain = commandWord(m_sender.mid(m_sender.indexOf(u'@') + 1));
    command((m_servers.useAuthentication ? "EHLO " : "HELO ") + (domain.isEmpty() ? "localhost" : domain));
    await(Accepted, m_servers.connectTimeout, &MailSession::helloAnswered);
}

void MailSession::helloAnswered(bool ok) {
    if (!ok)
        return giveUp();
    if (!m_servers.useAuthentication)
        return endPhase(true);
    await(LoginOffered, kLoginWait, &MailSession::loginOfferAwaited);
}

void MailSession::loginOfferAwaited(bool ok) {
    if (m_failed || m_dropped)
        return giveUp();
    if (!ok) {
        m_events.OnStatus(QStringLiteral("Login Not Supported by Host, Continuing..."));
        return endPhase(true);
    }
    m_events.OnStatus(QStringLiteral("Sending Login Authentication..."));
    m_loggingIn = true;
    command("AUTH Login");
    await(LoggedIn, kLoginWait, &MailSession::loginEnded);
}

void MailSession::loginEnded(bool ok) {
    m_loggingIn = false;
    m_loggedIn = ok;
    const QString text = ok ? QStringLiteral("Host Login OK!") : QStringLiteral("Host Login Failed!");
    m_events.OnStatus(text);
    if (!ok)
        fail(text);
    endPhase(ok);
}

void MailSession::Send(const QString& sender, const QStringList& recipients, std::unique_ptr<MessageStream> message) {
    m_phase = Phase::Send;
    m_sender = sender;
    m_recipients = recipients;
    m_message = std::move(message);
    if (!m_ready || !m_open) {
        fail(notOpenText);
        return endPhase(false);
    }
    m_events.OnStatus(QStringLiteral("Sending Sender Information..."));
    const QByteArray address = commandWord(sender);
    command("MAIL FROM: <" + address + ">" + (m_loggedIn ? " AUTH=" + address : QByteArray()));
    await(Accepted, m_servers.messageTimeout, &MailSession::senderAnswered);
}

void MailSession::senderAnswered(bool ok) {
    if (!ok)
        return giveUp();
    m_events.OnStatus(QStringLiteral("Sending Recipient Information..."));
    nextRecipient();
}

void MailSession::nextRecipient() {
    if (m_recipients.isEmpty()) {
        m_events.OnStatus(QStringLiteral("Sending Message..."));
        command("DATA");
        await(GoAhead, m_servers.messageTimeout, &MailSession::dataAnswered);
        return;
    }
    command("RCPT TO: <" + commandWord(m_recipients.takeFirst()) + ">");
    await(Accepted, m_servers.messageTimeout, &MailSession::recipientAnswered);
}

void MailSession::recipientAnswered(bool ok) {
    ok ? nextRecipient() : giveUp();
}

void MailSession::dataAnswered(bool ok) {
    if (!ok)
        return giveUp();
    sendContent(true);
}

/// One block each time little enough waits to leave, so that a large attachment is never held in memory.
void MailSession::sendContent(bool ok) {
    if (!ok)
        return giveUp();
    m_flags = 0;
    while (!m_message->AtEnd() && m_wire.Unsent() <= kMostUnsent) {
        const MessageStream::Block block = m_message->Next();
        if (!block.status.isEmpty())
            m_events.OnStatus(block.status);
        if (const auto error = m_message->Error()) {
            // The end mark was not sent: the server drops the half mail with the connection.
            fail(*error);
            return endPhase(false);
        }
        m_wire.Send(block.bytes);
    }
    if (m_message->AtEnd())
        await(Accepted, m_servers.messageTimeout, &MailSession::contentAnswered);
    else
        await(Drained, m_servers.messageTimeout, &MailSession::sendContent);
}

void MailSession::contentAnswered(bool ok) {
    if (!ok)
        return giveUp();
    m_events.OnStatus(QStringLiteral("Transmission Complete..."));
    endPhase(true);
}

void MailSession::Disconnect() {
    if (!m_open)
        return;
    m_events.OnStatus(QStringLiteral("Closing Connection..."));
    m_wire.Send("QUIT\r\n");
    close();
}

void MailSession::Shutdown() {
    if (m_phase != Phase::None)
        fail(notOpenText); // the wait under way ends at the next look
    close();
}

void MailSession::close() {
    m_ready = false;
    if (std::exchange(m_open, false))
        m_wire.Close();
}

void MailSession::OnConnected() {
    m_flags |= Connected;
    Poll();
}

void MailSession::OnClosed() {
    m_dropped = true;
    m_ready = false;
    Poll();
}

void MailSession::OnOverrun() {
    fail(QStringLiteral("The mail server sent a reply that is too long"));
    Poll();
}

void MailSession::OnProgress() {
    if (m_wait.next == nullptr)
        return;
    if (m_wire.Unsent() <= kMostUnsent)
        m_flags |= Drained;
    setDeadline(); // somebody is still reading
    Poll();
}

void MailSession::OnReply(const ServerReply& reply) {
    const bool isTaken = m_inPop ? takePop(reply) : takeSmtp(reply);
    if (!isTaken)
        fail(modForeignText::FromServer(QString::fromUtf8(reply.text)));
    Poll();
}

bool MailSession::takePop(const ServerReply& reply) {
    if (reply.code != "+OK")
        return false;
    answerPop();
    return true;
}

bool MailSession::takeSmtp(const ServerReply& reply) {
    if (reply.code == "220") {
        m_flags |= Greeted;
    } else if (reply.code == "250" || reply.code == "251") {
        m_flags |= Accepted;
        const QByteArray text = reply.text.toLower();
        if (reply.code == "250" && (text.contains("auth login") || text.contains("auth=login")))
            m_flags |= LoginOffered;
    } else if (reply.code == "235") {
        m_flags |= LoggedIn;
    } else if (reply.code == "334" && m_loggingIn) {
        answerLogin(reply);
    } else if (reply.code == "354") {
        m_flags |= GoAhead;
    } else {
        return reply.code == "221" || reply.code == "211" || reply.code == "214";
    }
    return true;
}

void MailSession::answerLogin(const ServerReply& reply) {
    const QByteArray prompt = modBase64::DecodeBase64String(reply.text.mid(4).trimmed()).toLower();
    if (prompt.contains("username"))
        m_wire.Send(m_servers.username.toUtf8().toBase64() + "\r\n");
    else if (prompt.contains("password"))
        m_wire.Send(m_servers.password.toUtf8().toBase64() + "\r\n");
    else
        m_wire.Send("\r\n*\r\n");
}

void MailSession::answerPop() {
    switch (m_popStep++) {
    case 0:
        m_wire.Send("USER " + commandWord(m_servers.username) + "\r\n");
        break;
    case 1:
        m_wire.Send("PASS " + commandWord(m_servers.password) + "\r\n");
        break;
    case 2:
        m_wire.Send("QUIT\r\n");
        break;
    default:
        m_flags |= PopDone;
    }
}

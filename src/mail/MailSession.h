// One dialogue with a mail server: POP3 login first when wanted (RFC 1939), then SMTP (RFC 5321) with AUTH LOGIN. A
// state machine: it is told what the connection does and what time it is, and says what to send. Owns no socket and no
// timer. Every failure is reported once, with its text, and closes the connection.
#pragma once

#include "MailSessionEvents.h"
#include "MailWire.h"
#include "MessageStream.h"
#include "ReplyReader.h"
#include <functional>

struct MailServers {
    QString smtpHost;
    int smtpPort = 25;
    QString popHost;
    int popPort = 110;
    QString username;
    QString password;
    bool useAuthentication = false;
    bool usePopAuthentication = false;
    int connectRetry = 4;    ///< attempts
    int connectTimeout = 30; ///< seconds for each wait of the connect phase; below 1 every wait fails at once
    int messageTimeout = 60; ///< seconds for each wait of the send phase
};

class MailSession final {
  public:
    /// `secondsOfDay` gives the seconds since midnight, local time.
    MailSession(MailWire& wire, MailSessionEvents& events, std::function<int()> secondsOfDay);

    /// Begins the connect phase. `sender` names the domain of the greeting.
    void Connect(const MailServers& servers, const QString& sender);

    /// Begins to send one mail on a session that is ready. `recipients` is the whole envelope.
    void Send(const QString& sender, const QStringList& recipients, std::unique_ptr<MessageStream> message);

    /// Says QUIT and closes. Nothing happens on a session that is closed.
    void Disconnect();

    /// Ends any wait and closes at once.
    void Shutdown();

    [[nodiscard]] bool IsReady() const { return m_ready; }
    [[nodiscard]] bool IsBusy() const { return m_phase != Phase::None; }

    void OnConnected();
    void OnReply(const ServerReply& reply);
    void OnOverrun();
    void OnProgress();
    void OnClosed();

    /// Looks at the clock; to be called every 10 ms or so while the session is busy.
    void Poll();

  private:
    enum class Phase { None, Connect, Send };
    enum Flag : unsigned {
        Connected = 1,
        Greeted = 2,
        Accepted = 4,
        LoginOffered = 8,
        LoggedIn = 16,
        GoAhead = 32,
        PopDone = 64,
        Drained = 128
    };
    using Next = void (MailSession::*)(bool ok);
    struct Wait {
        unsigned flag = 0;
        int seconds = 0;
        int deadline = 0;
        Next next = nullptr;
    };

    void await(Flag flag, int seconds, Next next);
    void finishWait(bool ok);
    void setDeadline();
    void command(const QByteArray& line);
    void fail(const QString& text);
    void close();
    void giveUp();
    void endPhase(bool ok);

    void tryToConnect();
    void attemptEnded(bool ok);
    void popEnded(bool ok);
    void startSmtp();
    void greeted(bool ok);
    void helloAnswered(bool ok);
    void loginOfferAwaited(bool ok);
    void loginEnded(bool ok);

    void senderAnswered(bool ok);
    void recipientAnswered(bool ok);
    void nextRecipient();
    void dataAnswered(bool ok);
    void sendContent(bool ok);
    void contentAnswered(bool ok);

    /// False for a reply that has no place in the dialogue.
    [[nodiscard]] bool takePop(const ServerReply& reply);
    [[nodiscard]] bool takeSmtp(const ServerReply& reply);
    void answerLogin(const ServerReply& reply);
    void answerPop();

    MailWire& m_wire;
    MailSessionEvents& m_events;
    std::function<int()> m_secondsOfDay;
    MailServers m_servers;
    QString m_sender;
    QStringList m_recipients;
    std::unique_ptr<MessageStream> m_message;

    Phase m_phase = Phase::None;
    Wait m_wait;
    unsigned m_flags = 0;
    int m_attempt = 0;
    int m_popStep = 0;
    bool m_inPop = false;
    bool m_loggingIn = false;
    bool m_loggedIn = false;
    bool m_open = false;
    bool m_dropped = false; ///< the connection ended without our doing
    bool m_failed = false;
    bool m_ready = false;
};

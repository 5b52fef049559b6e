// One dialogue with a mail server: POP3 login first when wanted (RFC 1939), then SMTP (RFC 5321) with AUTH LOGIN. A
// state machine: it is told what the connection does and what time it is, and says what to send. Owns no socket and no
// timer. Every failure is reported once, with its text, and closes the connection.
#pragma once

#include "MailServers.h"
#include "MailSessionEvents.h"
#include "MailWire.h"
#include "MessageStream.h"
#include "ReplyReader.h"
#include <functional>

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

    /// Ends what is under way, without success, and closes at once.
    void Shutdown();

    [[nodiscard]] bool IsReady() const { return m_state == State::Ready; }
    [[nodiscard]] bool IsBusy() const { return m_state != State::Closed && m_state != State::Ready; }

    void OnConnected();
    void OnReply(const ServerReply& reply);
    void OnOverrun();
    /// Some of what was sent has left.
    void OnProgress();
    void OnClosed();

    /// Looks at the clock; to be called every 10 ms or so while the session is busy.
    void Poll();

  private:
    /// In the order of the dialogue; what comes after Ready belongs to one mail.
    enum class State {
        Closed,
        PopConnecting,
        PopGreeting,
        PopUser,
        PopPassword,
        PopQuit,
        Connecting,
        Greeting,
        Hello,
        LoginOffer,
        Login,
        Ready,
        Sender,
        Recipient,
        Data,
        Content,
        Delivery
    };
    enum class Awaited { Nothing, Connection, PopOk, Greeting, Accepted, LoginOffer, LoggedIn, GoAhead };
    enum class Patience { None, Connect, Login, Message };
    struct Row;
    static const Row& rowOf(State state);

    void enter(State state);
    void arrived(Awaited what);
    [[nodiscard]] State next() const;
    [[nodiscard]] int seconds() const;
    void setDeadline();
    void timedOut();
    void fail(const QString& text);
    void close();
    void endPhase(State last, bool ok);
    void tell(const char* status);

    void openPop();
    void openSmtp();
    void open(const QString& host, int port);
    void command(const QByteArray& line);
    void sendUser();
    void sendPassword();
    void sendQuit();
    void sendHello();
    void sendLogin();
    void sendSender();
    void sendRecipient();
    void sendData();
    void sendContent();
    void lookAtProgress();
    void answerLogin(const ServerReply& reply);
    /// False for a reply that has no place in the dialogue.
    [[nodiscard]] bool takeSmtp(const ServerReply& reply);

    MailWire& m_wire;
    MailSessionEvents& m_events;
    std::function<int()> m_secondsOfDay;
    MailServers m_servers;
    QString m_sender;
    QStringList m_recipients;
    std::unique_ptr<MessageStream> m_message;

    State m_state = State::Closed;
    int m_deadline = 0; ///< seconds of the day
    int m_attempt = 0;
    qint64 m_untaken = 0; ///< as of the last look at the content
    bool m_loggedIn = false;
};

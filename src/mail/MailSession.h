// One dialogue with a mail server: POP3 login first if wanted (RFC 1939), then SMTP (RFC 5321) with AUTH LOGIN, or
// encrypted (RFC 3207, RFC 8314) with AUTH PLAIN or LOGIN. A state machine without socket or timer: MailConnection
// hands it replies and calls Poll(). Every failure is reported once, with its text, and closes the connection.
#pragma once

#include "MailSettings.h"
#include "MailWire.h"
#include "MessageStream.h"
#include <functional>

class StringTable;

/// How a session gets on. The session calls from the middle of its work: an implementation must not destroy it, nor
/// begin or end an operation on it.
class MailSessionEvents {
  public:
    virtual ~MailSessionEvents() = default;

    virtual void OnStatus(const QString& text) = 0;
    virtual void OnFailed(const QString& text) = 0;
    virtual void OnConnectEnded(bool ready) = 0; ///< `ready`: a mail can be sent now
    virtual void OnSendEnded(bool accepted) = 0;
};

class MailSession final {
  public:
    /// `secondsOfDay` gives the seconds since midnight, local time.
    MailSession(MailWire& wire, MailSessionEvents& events, const StringTable& texts, std::function<int()> secondsOfDay);

    /// Starts the connect phase. HELO names the domain of `sender`.
    void Connect(const MailServers& servers, const QString& sender);

    /// Starts the send phase of one mail; the session has to be ready. `recipients` is the whole envelope.
    void Send(const QString& sender, const QStringList& recipients, std::unique_ptr<MessageStream> message);

    /// Sends QUIT and closes; does nothing on a closed session.
    void Disconnect();

    /// Fails what is under way and closes without QUIT.
    void Shutdown();

    [[nodiscard]] bool IsReady() const { return m_state == State::Ready; }
    [[nodiscard]] bool IsBusy() const { return m_state != State::Closed && m_state != State::Ready; }

    void OnConnected();
    void OnEncrypted();
    void OnNotEncrypted(const QString& reason);
    void OnReply(const ServerReply& reply);
    void OnOverrun();
    void OnProgress(); ///< some of what was sent has left this process
    void OnClosed();

    /// Checks the deadline; to be called every 10 ms or so while the session is busy.
    void Poll();

  private:
    /// In the order of the dialogue; the states after Ready belong to one mail.
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
        Offers,
        StartTls,
        Encrypting,
        LoginOffer,
        Login,
        PlainLogin,
        Ready,
        Sender,
        Recipient,
        Data,
        Content,
        Delivery
    };
    enum class Awaited { Nothing, Connection, PopOk, Greeting, Encryption, Accepted, LoginOffer, LoggedIn, GoAhead };
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
    void sendHello();
    void lookAtOffers();
    void startEncryption();
    void sendPlainLogin();
    void sendSender();
    void sendRecipient();
    void sendContent();
    void lookAtProgress();
    void answerLogin(const ServerReply& reply);
    /// False for a reply that fails the dialogue.
    [[nodiscard]] bool takeSmtp(const ServerReply& reply);

    MailWire& m_wire;
    MailSessionEvents& m_events;
    const StringTable& m_texts;
    std::function<int()> m_secondsOfDay;
    MailServers m_servers;
    QString m_sender;
    QStringList m_recipients;
    std::unique_ptr<MessageStream> m_message;

    State m_state = State::Closed;
    int m_deadline = 0; ///< seconds of the day
    int m_attempt = 0;
    qint64 m_untaken = 0; ///< at the last check
    QByteArray m_hello;   ///< the reply to EHLO
    bool m_encrypted = false;
    bool m_loggedIn = false;
};

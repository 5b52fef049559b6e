// The dialogue without a socket: the server's part is a script, the clock a number.
#include "MailSession.h"

#include <QTest>

namespace {

class ScriptedServer final : public MailWire, public MailSessionEvents {
  public:
    void Open(const QString& host, quint16 port) override {
        talk += u"open %1:%2"_qs.arg(host).arg(port);
        if (answersConnects)
            arrived = true;
    }
    void Send(const QByteArray& bytes) override {
        if (inData) {
            body += bytes;
            inData = !body.endsWith("\r\n.\r\n");
        } else {
            talk += QString::fromLatin1(bytes).trimmed();
        }
        sent += bytes;
    }
    void Close() override { talk += u"close"_qs; }
    qint64 Unsent() const override { return unsent; }
    void OnStatus(const QString& text) override { events += text; }
    void OnFailed(const QString& text) override { events += u"failed: "_qs + text; }
    void OnConnectEnded(bool ready) override { events += ready ? u"ready"_qs : u"not ready"_qs; }
    void OnSendEnded(bool accepted) override { events += accepted ? u"accepted"_qs : u"refused"_qs; }

    /// Gives the session these replies one by one; "<connected>" and "<closed>" are what the socket says.
    void Play(const QStringList& replies) {
        for (const QString& reply : replies) {
            if (reply == u"<connected>")
                session.OnConnected();
            else if (reply == u"<closed>")
                session.OnClosed();
            else if (reply.startsWith(u"<wait "))
                Wait(reply.mid(6).chopped(1).toInt());
            else
                Answer(reply.toLatin1());
        }
    }
    void Answer(const QByteArray& line) {
        inData = inData || line.startsWith("354");
        session.OnReply({line.left(3), line});
    }
    void Wait(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            now = (now + 1) % 86400;
            session.Poll();
        }
    }
    std::unique_ptr<MessageStream> Mail() const {
        MailMessage mail;
        mail.from = u"me@here.de"_qs;
        mail.recipients = QStringList{u"you@there.de"_qs};
        mail.text = u"Hello"_qs;
        return std::make_unique<MessageStream>(mail, QDateTime(QDate(2003, 1, 5), QTime(14, 7, 9)));
    }

    QStringList talk;
    QStringList events;
    QByteArray body;
    QByteArray sent;
    bool inData = false;
    bool answersConnects = false;
    bool arrived = false;
    qint64 unsent = 0;
    int now = 36'000;
    MailSession session{*this, *this, [this] { return now; }};
};

MailServers servers(bool login = false, bool pop = false) {
    MailServers all;
    all.smtpHost = u"smtp"_qs;
    all.popHost = u"pop"_qs;
    all.username = u"user"_qs;
    all.password = u"secret"_qs;
    all.useAuthentication = login;
    all.usePopAuthentication = pop;
    return all;
}

const QString timedOut = u"failed: Timeout occurred: The SMTP Host did not respond to the request"_qs;

} // namespace

class TestMailSession final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void connects_data() {
        QTest::addColumn<bool>("login");
        QTest::addColumn<bool>("pop");
        QTest::addColumn<QStringList>("replies");
        QTest::addColumn<QStringList>("talk");
        QTest::addColumn<QStringList>("events");
        const QString hello = u"Initializing Communications..."_qs;
        const QString loggingIn = u"Sending Login Authentication..."_qs;
        const QString pop = u"Connecting to POP3 Server (pop)..."_qs;
        QTest::newRow("plain") << false << false << QStringList{u"<connected>"_qs, u"220 hi"_qs, u"250 AUTH LOGIN"_qs}
                               << QStringList{u"open smtp:25"_qs, u"HELO here.de"_qs}
                               << QStringList{hello, u"ready"_qs};
        QTest::newRow("login")
            << true << false
            << QStringList{u"<connected>"_qs,      u"220 hi"_qs,           u"250-x\r\n250 AUTH=LOGIN"_qs,
                           u"334 VXNlcm5hbWU6"_qs, u"334 UGFzc3dvcmQ6"_qs, u"235 fine"_qs}
            << QStringList{u"open smtp:25"_qs, u"EHLO here.de"_qs, u"AUTH Login"_qs, u"dXNlcg=="_qs, u"c2VjcmV0"_qs}
            << QStringList{hello, loggingIn, u"Host Login OK!"_qs, u"ready"_qs};
        QTest::newRow("login, odd prompt")
            << true << false
            << QStringList{u"<connected>"_qs, u"220 hi"_qs, u"250 AUTH LOGIN"_qs, u"334 Zm9v"_qs, u"501 cancelled"_qs}
            << QStringList{u"open smtp:25"_qs, u"EHLO here.de"_qs, u"AUTH Login"_qs, u"*"_qs, u"close"_qs}
            << QStringList{hello, loggingIn, u"failed: 501 cancelled"_qs, u"Host Login Failed!"_qs, u"not ready"_qs};
        QTest::newRow("login not offered")
            << true << false << QStringList{u"<connected>"_qs, u"220 hi"_qs, u"250 AUTH PLAIN LOGIN"_qs, u"<wait 5>"_qs}
            << QStringList{u"open smtp:25"_qs, u"EHLO here.de"_qs}
            << QStringList{hello, u"Login Not Supported by Host, Continuing..."_qs, u"ready"_qs};
        QTest::newRow("login unanswered")
            << true << false << QStringList{u"<connected>"_qs, u"220 hi"_qs, u"250 AUTH LOGIN"_qs, u"<wait 5>"_qs}
            << QStringList{u"open smtp:25"_qs, u"EHLO here.de"_qs, u"AUTH Login"_qs, u"close"_qs}
            << QStringList{hello, loggingIn, u"Host Login Failed!"_qs, u"failed: Host Login Failed!"_qs,
                           u"not ready"_qs};
        QTest::newRow("prompt nobody asked for")
            << false << false << QStringList{u"<connected>"_qs, u"334 UGFzc3dvcmQ6"_qs}
            << QStringList{u"open smtp:25"_qs, u"close"_qs}
            << QStringList{u"failed: 334 UGFzc3dvcmQ6"_qs, u"not ready"_qs};
        QTest::newRow("POP3 first") << false << true
                                    << QStringList{u"<connected>"_qs, u"+OK"_qs,         u"+OK"_qs,    u"+OK"_qs,
                                                   u"+OK"_qs,         u"<connected>"_qs, u"220 hi"_qs, u"250 ok"_qs}
                                    << QStringList{u"open pop:110"_qs, u"USER user"_qs, u"PASS secret"_qs,
                                                   u"QUIT"_qs,         u"close"_qs,     u"open smtp:25"_qs,
                                                   u"HELO here.de"_qs}
                                    << QStringList{pop, u"POP3 Authentication Successful..."_qs, hello, u"ready"_qs};
        QTest::newRow("POP3 refuses") << false << true << QStringList{u"<connected>"_qs, u"+OK"_qs, u"-ERR who?"_qs}
                                      << QStringList{u"open pop:110"_qs, u"USER user"_qs, u"close"_qs}
                                      << QStringList{pop, u"failed: -ERR who?"_qs, u"not ready"_qs};
        QTest::newRow("an SMTP server is asked for no password")
            << false << false << QStringList{u"<connected>"_qs, u"+OK"_qs}
            << QStringList{u"open smtp:25"_qs, u"close"_qs} << QStringList{u"failed: +OK"_qs, u"not ready"_qs};
        QTest::newRow("refused four times")
            << false << false << QStringList{u"<closed>"_qs, u"<closed>"_qs, u"<closed>"_qs, u"<closed>"_qs}
            << QStringList{u"open smtp:25"_qs, u"open smtp:25"_qs, u"open smtp:25"_qs, u"open smtp:25"_qs, u"close"_qs}
            << QStringList{timedOut, u"not ready"_qs};
        QTest::newRow("second attempt") << false << false
                                        << QStringList{u"<wait 30>"_qs, u"<connected>"_qs, u"220 hi"_qs, u"250 ok"_qs}
                                        << QStringList{u"open smtp:25"_qs, u"open smtp:25"_qs, u"HELO here.de"_qs}
                                        << QStringList{hello, u"ready"_qs};
        QTest::newRow("silent") << false << false << QStringList{u"<connected>"_qs, u"<wait 30>"_qs}
                                << QStringList{u"open smtp:25"_qs, u"close"_qs}
                                << QStringList{timedOut, u"not ready"_qs};
        QTest::newRow("silent for a second less") << false << false << QStringList{u"<connected>"_qs, u"<wait 29>"_qs}
                                                  << QStringList{u"open smtp:25"_qs} << QStringList{};
        QTest::newRow("killed after the greeting")
            << false << false << QStringList{u"<connected>"_qs, u"220 hi"_qs, u"<closed>"_qs}
            << QStringList{u"open smtp:25"_qs, u"HELO here.de"_qs, u"close"_qs}
            << QStringList{hello, u"failed: Socket not Open"_qs, u"not ready"_qs};
    }
    void connects() {
        QFETCH(bool, login);
        QFETCH(bool, pop);
        QFETCH(QStringList, replies);
        ScriptedServer server;
        server.session.Connect(servers(login, pop), u"me@here.de"_qs);
        server.Play(replies);
        QTEST(server.talk, "talk");
        QTEST(server.events, "events");
        QCOMPARE(server.session.IsReady(), server.events.endsWith(u"ready"_qs));
    }

    void sends_data() {
        QTest::addColumn<QStringList>("replies");
        QTest::addColumn<QStringList>("talk");
        QTest::addColumn<QString>("end");
        const QStringList all{u"MAIL FROM: <me@here.de>"_qs, u"RCPT TO: <a@x.de>"_qs, u"RCPT TO: <b@x.de>"_qs,
                              u"DATA"_qs};
        const QStringList closed{u"close"_qs};
        QTest::newRow("taken") << QStringList{u"250 1"_qs, u"251 2"_qs, u"250 3"_qs, u"354 4"_qs, u"250 5"_qs} << all
                               << u"accepted"_qs;
        QTest::newRow("second recipient refused") << QStringList{u"250 1"_qs, u"250 2"_qs, u"550 no b here"_qs}
                                                  << all.mid(0, 3) + closed << u"failed: 550 no b here"_qs;
        QTest::newRow("a recipient that cannot be verified")
            << QStringList{u"250 1"_qs, u"252 perhaps"_qs} << all.mid(0, 2) + closed << u"failed: 252 perhaps"_qs;
        QTest::newRow("no go-ahead") << QStringList{u"250 1"_qs, u"250 2"_qs, u"250 3"_qs, u"<wait 60>"_qs}
                                     << all + closed << timedOut;
        QTest::newRow("killed while it waits for the verdict")
            << QStringList{u"250 1"_qs, u"250 2"_qs, u"250 3"_qs, u"354 4"_qs, u"<closed>"_qs} << all + closed
            << u"failed: Socket not Open"_qs;
        QTest::newRow("refused at the end")
            << QStringList{u"250 1"_qs, u"250 2"_qs, u"250 3"_qs, u"354 4"_qs, u"554 spam"_qs} << all + closed
            << u"failed: 554 spam"_qs;
        QTest::newRow("goes away at once")
            << QStringList{u"421 bye"_qs} << all.mid(0, 1) + closed << u"failed: 421 bye"_qs;
    }
    void sends() {
        QFETCH(QStringList, replies);
        QFETCH(QString, end);
        ScriptedServer server;
        server.session.Connect(servers(), u"me@here.de"_qs);
        server.Play({u"<connected>"_qs, u"220 hi"_qs, u"250 ok"_qs});
        server.talk.clear();
        server.session.Send(u"me@here.de"_qs, {u"a@x.de"_qs, u"b@x.de"_qs}, server.Mail());
        server.Play(replies);
        QTEST(server.talk, "talk");
        const bool accepted = end == u"accepted";
        QCOMPARE(server.events.last(), accepted ? end : u"refused"_qs);
        QVERIFY(server.events.contains(end));
        QCOMPARE(server.events.filter(u"failed: "_qs).size(), accepted ? 0 : 1);
        QVERIFY(!server.session.IsBusy());
    }

    void loginNamesTheSender() {
        ScriptedServer server;
        server.session.Connect(servers(true), u"me@here.de"_qs);
        server.Play({u"<connected>"_qs, u"220 hi"_qs, u"250 AUTH LOGIN"_qs, u"235 fine"_qs});
        server.session.Send(u"me@here.de"_qs, {u"a@x.de"_qs}, server.Mail());
        QCOMPARE(server.talk.last(), u"MAIL FROM: <me@here.de> AUTH=me@here.de"_qs);
    }

    void holdsBackWhileTheSocketIsFull() {
        ScriptedServer server;
        server.session.Connect(servers(), u"me@here.de"_qs);
        server.Play({u"<connected>"_qs, u"220 hi"_qs, u"250 ok"_qs});
        server.session.Send(u"me@here.de"_qs, {u"a@x.de"_qs}, server.Mail());
        server.unsent = 4097;
        server.Play({u"250 1"_qs, u"250 2"_qs, u"354 4"_qs});
        QVERIFY(server.body.isEmpty());
        server.Wait(59);
        server.session.OnProgress(); // a byte has left: the time starts anew
        server.Wait(59);
        QVERIFY(server.session.IsBusy());
        server.unsent = 4096;
        server.session.OnProgress();
        QVERIFY(server.body.endsWith("\r\n.\r\n"));
        server.unsent = 0;
        server.Play({u"250 done"_qs});
        QCOMPARE(server.events.last(), u"accepted"_qs);
    }

    void waitsCountInSecondsOfTheDay() {
        ScriptedServer server;
        server.now = 86'390; // the end of the wait lies behind midnight: the clock is past it already
        server.session.Connect(servers(), u"me@here.de"_qs);
        server.session.Poll();
        QCOMPARE(server.events, (QStringList{timedOut, u"not ready"_qs}));

        ScriptedServer noTime;
        MailServers impatient = servers();
        impatient.connectTimeout = 0;
        noTime.session.Connect(impatient, u"me@here.de"_qs);
        noTime.session.OnConnected();
        QCOMPARE(noTime.events, (QStringList{timedOut, u"not ready"_qs}));
    }

    void nothingBreaksOutOfACommandLine() {
        ScriptedServer server;
        MailServers hostile = servers(false, true);
        hostile.username = u"a\r\nDELE 1"_qs;
        server.session.Connect(hostile, u"me@here.de\r\nRSET"_qs);
        server.Play({u"<connected>"_qs, u"+OK"_qs, u"+OK"_qs, u"+OK"_qs, u"+OK"_qs, u"<connected>"_qs, u"220"_qs});
        QCOMPARE(server.sent.count("\r\n"), 4);
    }
};

QTEST_APPLESS_MAIN(TestMailSession)
#include "test_mailsession.moc"

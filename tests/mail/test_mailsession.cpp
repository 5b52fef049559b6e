// The dialogue without a socket: the server's part is a script, the clock a number.
#include "MailSession.h"

#include <QRegularExpression>
#include <QTest>

namespace {

class ScriptedServer final : public MailWire, public MailSessionEvents {
  public:
    void Open(const QString& host, quint16 port) override { talk += u"open %1:%2"_qs.arg(host).arg(port); }
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
    qint64 Untaken() const override { return untaken; }
    void OnStatus(const QString& text) override { events += text; }
    void OnFailed(const QString& text) override { events += u"failed: "_qs + text; }
    void OnConnectEnded(bool ready) override { events += ready ? u"ready"_qs : u"not ready"_qs; }
    void OnSendEnded(bool accepted) override { events += accepted ? u"accepted"_qs : u"refused"_qs; }

    /// Gives the session these replies one by one; "connected" and "closed" are what the socket says.
    void Play(const QByteArray& replies) {
        for (const QByteArray& reply : replies.split('|')) {
            if (reply == "connected")
                session.OnConnected();
            else if (reply == "closed")
                session.OnClosed();
            else if (reply.startsWith("wait "))
                Wait(reply.mid(5).toInt());
            else {
                inData = inData || reply.startsWith("354");
                session.OnReply({reply.left(3), reply});
            }
        }
    }
    void Wait(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            now = (now + 1) % 86400;
            session.Poll();
        }
    }
    void Greet();
    void SendMail(const QStringList& recipients) {
        MailMessage mail;
        mail.from = u"me@here.de"_qs;
        mail.recipients = recipients;
        mail.text = u"Hello"_qs;
        auto stream = std::make_unique<MessageStream>(mail, QDateTime(QDate(2003, 1, 5), QTime(14, 7, 9)));
        session.Send(mail.from, recipients, std::move(stream));
    }

    QStringList talk;
    QStringList events;
    QByteArray body;
    QByteArray sent;
    bool inData = false;
    qint64 unsent = 0;
    qint64 untaken = 0;
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

void ScriptedServer::Greet() {
    session.Connect(servers(), u"me@here.de"_qs);
    Play("connected|220 hi|250 ok");
}

const QString timedOut = u"failed: Timeout occurred: The SMTP Host did not respond to the request"_qs;

} // namespace

class TestMailSession final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void connects() {
        /// What is sent, and after "=>" what is told. The login is "", "smtp" or "pop".
        const auto dialogue = [](const QByteArray& login, const QByteArray& replies) -> QString {
            ScriptedServer server;
            server.session.Connect(servers(login == "smtp", login == "pop"), u"me@here.de"_qs);
            server.Play(replies);
            if (server.session.IsReady() != server.events.endsWith(u"ready"_qs))
                return u"says that it is ready and is not"_qs;
            return server.talk.join(u'|') + u" => " + server.events.join(u'|');
        };
        const QString hello = u"Initializing Communications..."_qs;
        const QString open = u"open smtp:25|HELO here.de => "_qs + hello;
        const QString login = u"open smtp:25|EHLO here.de%1 => "_qs + hello + u"|Sending Login Authentication...|";
        const QString failed = u"open smtp:25|close => failed: "_qs;
        QCOMPARE(dialogue("smtp", "connected|220 hi|250 AUTH LOGIN|334 Zm9v|501 cancelled"), // an odd prompt
                 QString(login.arg(u"|AUTH Login|*|close"_qs) + u"failed: 501 cancelled|Host Login Failed!|not ready"));
        QCOMPARE(
            dialogue("smtp", "connected|220 hi|250 AUTH LOGIN|wait 5"),
            QString(login.arg(u"|AUTH Login|close"_qs) + u"Host Login Failed!|failed: Host Login Failed!|not ready"));
        QCOMPARE(
            dialogue("smtp", "connected|220 hi|250 AUTH PLAIN LOGIN|wait 5"),
            QString(u"open smtp:25|EHLO here.de => " + hello + u"|Login Not Supported by Host, Continuing...|ready"));
        // Whom nobody asked for a login does not get it.
        QCOMPARE(dialogue("", "connected|334 UGFzc3dvcmQ6"), QString(failed + u"334 UGFzc3dvcmQ6|not ready"));
        // Nor does a server command whoever reads the log, or fill it.
        QCOMPARE(dialogue("", "connected|500 \x1b[2J" + QByteArray(300, 'x')),
                 QString(failed + u"500 \uFFFD[2J" + QString(192, u'x') + u"|not ready"));
        QCOMPARE(dialogue("", "connected|+OK"), QString(failed + u"+OK|not ready"));
        QCOMPARE(dialogue("", "closed|closed|closed|closed"),
                 QString(u"open smtp:25|"_qs.repeated(4) + u"close => " + timedOut + u"|not ready"));
        QCOMPARE(dialogue("", "wait 30|connected|220 hi|250 ok"), QString(u"open smtp:25|" + open + u"|ready"));
        // A blank line is no reason anybody could read; nor does a prompt that comes again and again buy time.
        QCOMPARE(dialogue("", "connected|"), QString(failed + u"The mail server sent an empty reply|not ready"));
        QCOMPARE(
            dialogue("smtp", "connected|220 hi|250 AUTH LOGIN" + QByteArray("|wait 1|334 UGFzc3dvcmQ6").repeated(5)),
            QString(login.arg(u"|AUTH Login"_qs + u"|c2VjcmV0"_qs.repeated(4) + u"|close") +
                    u"Host Login Failed!|failed: Host Login Failed!|not ready"));
        QCOMPARE(dialogue("", "connected|wait 30"), QString(u"open smtp:25|close => " + timedOut + u"|not ready"));
    }

    void sends() {
        /// How many of the four commands are sent, and how it ends.
        const auto outcome = [](const QByteArray& replies) -> QString {
            ScriptedServer server;
            server.Greet();
            server.talk.clear();
            server.SendMail({u"a@x.de"_qs, u"b@x.de"_qs});
            server.events.clear();
            server.Play(replies);
            QStringList talk{u"MAIL FROM: <me@here.de>"_qs, u"RCPT TO: <a@x.de>"_qs, u"RCPT TO: <b@x.de>"_qs,
                             u"DATA"_qs};
            const bool isClosed = server.talk.removeOne(u"close"_qs);
            const bool isInOrder = server.talk == talk.mid(0, server.talk.size());
            const QStringList ends = server.events.filter(QRegularExpression(u"^(failed: |accepted|refused)"_qs));
            return QString::number(server.talk.size()) + (isInOrder ? u" " : u" other ") + ends.join(u'|') +
                   (isClosed ? u"|closed" : u"") + (server.session.IsBusy() ? u"|busy" : u"");
        };
        QCOMPARE(outcome("250 1|251 2|250 3|354 4|250 5"), u"4 accepted"_qs);
        QCOMPARE(outcome("250 1|250 2|550 no b"), u"3 failed: 550 no b|refused|closed"_qs);
        QCOMPARE(outcome("250 1|252 perhaps"), u"2 failed: 252 perhaps|refused|closed"_qs);
        QCOMPARE(outcome("250 1|250 2|250 3|wait 60"), QString(u"4 " + timedOut + u"|refused|closed"));
        QCOMPARE(outcome("250 1|250 2|250 3|354 4|554 spam"), u"4 failed: 554 spam|refused|closed"_qs);
    }

    void holdsBackWhileTheSocketIsFull() {
        ScriptedServer server;
        server.Greet();
        server.SendMail({u"a@x.de"_qs});
        server.unsent = server.untaken = 4097;
        server.Play("250 1|250 2|354 4");
        QVERIFY(server.body.isEmpty());
        // What leaves for a buffer of the system is no progress, what the peer takes is, after the last byte too.
        const auto staysBusy = [&server](qint64 untaken) {
            server.Wait(58);
            server.untaken = untaken;
            server.session.OnProgress();
            server.Wait(1);
            return server.session.IsBusy();
        };
        QVERIFY(staysBusy(4096));
        QVERIFY(staysBusy(4000));
        server.unsent = 4096;
        server.session.OnProgress();
        QVERIFY(server.body.endsWith("\r\n.\r\n"));
        QVERIFY(staysBusy(1) && staysBusy(0));
        server.Wait(1);
        QVERIFY(!staysBusy(0));
        QCOMPARE(server.events.last(2), (QStringList{timedOut, u"refused"_qs}));
    }

    void domainsAreAscii() {
        ScriptedServer server;
        server.session.Connect(servers(), u"me@B\u00FCcher.de"_qs);
        server.Play("connected|220 hi|250 ok");
        server.session.Send(u"me@b\u00FCcher.de"_qs, {u"you@b\u00FCcher.de"_qs}, {});
        server.Play("250 ok");
        QCOMPARE(server.talk.mid(1).join(u'|'), u"HELO xn--bcher-kva.de|MAIL FROM: <me@xn--bcher-kva.de>|"
                                                "RCPT TO: <you@xn--bcher-kva.de>"_qs);
    }

    void nothingBreaksOutOfACommandLine() {
        ScriptedServer server;
        MailServers hostile = servers(false, true);
        hostile.username = u"a\r\nDELE 1"_qs;
        hostile.password = u"b\nDELE 2"_qs;
        server.session.Connect(hostile, u"me@here.de\r\nRSET"_qs);
        server.Play("connected|+OK|+OK|+OK|+OK|connected|220");
        QCOMPARE(server.sent.count("\n"), 4);
        server.Play("250 ok");
        server.session.Send(u"me\r\nRSET"_qs, {u"you\n@there.de\r\nDATA"_qs}, {});
        server.Play("250 ok");
        QCOMPARE(server.sent.count("\n"), 6);
        QCOMPARE(server.talk.last(), u"RCPT TO: <you@there.deDATA>"_qs);
    }
};

QTEST_APPLESS_MAIN(TestMailSession)
#include "test_mailsession.moc"

// The dialogue without a socket: the server is a script, the clock a number.
#include "MailSession.h"
#include "StringTable.h"
#include "modNetrc.h"

#include <QRegularExpression>
#include <QTest>

namespace {

MailServers servers(bool login = false, MailSecurity security = MailSecurity::None) {
    return {.smtpHost = u"smtp"_qs,
            .popHost = u"pop"_qs,
            .username = u"user"_qs,
            .password = u"secret"_qs,
            .useAuthentication = login,
            .security = security,
            .caFile = {}};
}

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
    bool StartEncryption() override {
        talk += u"encrypt"_qs;
        return !isInjected;
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
            else if (reply == "encrypted")
                session.OnEncrypted();
            else if (reply == "refused")
                session.OnNotEncrypted(u"expired"_qs);
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
    void Greet() {
        session.Connect(servers(), u"me@here.de"_qs);
        Play("connected|220 hi|250 ok");
    }
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
    bool isInjected = false;
    qint64 unsent = 0;
    qint64 untaken = 0;
    int now = 36'000;
    StringTable texts{Language::English};
    MailSession session{*this, *this, texts, [this] { return now; }};
};

/// "code: text" of each reply, which must not depend on the pieces they arrive in.
QByteArrayList repliesOf(const QByteArray& bytes) {
    QByteArrayList first;
    for (const qsizetype piece : {qsizetype{1}, qsizetype{3}, qsizetype{1024}, bytes.size()}) {
        ReplyReader reader;
        QByteArrayList replies;
        for (qsizetype at = 0; at < bytes.size(); at += piece) {
            reader.Feed(bytes.mid(at, piece));
            while (const auto reply = reader.Next())
                replies += reply->code + ": " + reply->text;
        }
        if (reader.IsOverrun())
            replies += "overrun";
        if (piece == 1)
            first = replies;
        else if (replies != first)
            return {"not the same in pieces of", QByteArray::number(piece)};
    }
    return first;
}

const QString timedOut = u"failed: Timeout occurred: The SMTP Host did not respond to the request"_qs;

} // namespace

class TestMailSession final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void cutsReplies() {
        using List = QByteArrayList;
        QCOMPARE(repliesOf("250-a\r\n250-AUTH LOGIN\r\n250 c\r\n221 d\r\n"),
                 (List{"250: 250-a\r\n250-AUTH LOGIN\r\n250 c", "221: 221 d"}));
        QCOMPARE(repliesOf("250 a\n354 b\n"), (List{"250: 250 a", "354: 354 b"}));
        QCOMPARE(repliesOf("+OK-ready\r\n\r\nabc\r\n"), (List{"+OK: +OK-ready", ": ", "ABC: abc"}));
        QCOMPARE(repliesOf("250-a\r\n250 b"), List()); // not complete
        QCOMPARE(repliesOf(QByteArray(10'000, '2')), List{"overrun"});
        QCOMPARE(repliesOf(QByteArray("250-xxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\r\n").repeated(3'000)), List{"overrun"});
    }

    void connects() {
        /// What is sent, and after "=>" what is reported.
        const auto talk = [](const QByteArray& replies, bool login = false) {
            ScriptedServer server;
            server.session.Connect(servers(login), u"me@here.de"_qs);
            server.Play(replies);
            const bool isReady = server.events.endsWith(u"ready"_qs);
            return QString((server.session.IsReady() == isReady ? u""_qs : u"IsReady lies: "_qs) +
                           server.talk.join(u'|') + u" => " + server.events.join(u'|'));
        };
        const QString hello = u"Initializing Communications..."_qs;
        const QString failed = u"open smtp:25|close => failed: "_qs;
        const QString login = u"open smtp:25|EHLO here.de%1 => "_qs + hello + u"|Sending Login Authentication...|";
        const QString loginFailed = u"Host Login Failed!|failed: Host Login Failed!|not ready"_qs;
        const QByteArray offer = "connected|220 hi|250 AUTH LOGIN";
        QCOMPARE(talk(offer + "|334 Zm9v|501 cancelled", true), // an unknown prompt
                 QString(login.arg(u"|AUTH Login|*|close"_qs) + u"failed: 501 cancelled|Host Login Failed!|not ready"));
        QCOMPARE(talk(offer + "|wait 5", true), login.arg(u"|AUTH Login|close"_qs) + loginFailed);
        // A repeated prompt buys no time.
        QCOMPARE(talk(offer + QByteArray("|wait 1|334 UGFzc3dvcmQ6").repeated(5), true),
                 login.arg(u"|AUTH Login"_qs + u"|c2VjcmV0"_qs.repeated(4) + u"|close") + loginFailed);
        QCOMPARE(talk("connected|220 hi|250 AUTH PLAIN LOGIN|wait 5", true),
                 u"open smtp:25|EHLO here.de => " + hello + u"|Login Not Supported by Host, Continuing...|ready");
        QCOMPARE(talk("connected|334 UGFzc3dvcmQ6"), failed + u"334 UGFzc3dvcmQ6|not ready"); // unasked
        QCOMPARE(talk("connected|500 \x1b[2J" + QByteArray(300, 'x')),                        // an attack on the log
                 QString(failed + u"500 \uFFFD[2J" + QString(192, u'x') + u"|not ready"));
        QCOMPARE(talk("connected|+OK"), failed + u"+OK|not ready"); // of POP3
        QCOMPARE(talk("connected|"), failed + u"The mail server sent an empty reply|not ready");
        QCOMPARE(talk("closed|closed|closed|closed"),
                 QString(u"open smtp:25|"_qs.repeated(4) + u"close => " + timedOut + u"|not ready"));
        QCOMPARE(talk("wait 30|connected|220 hi|250 ok"),
                 u"open smtp:25|open smtp:25|HELO here.de => " + hello + u"|ready");
        QCOMPARE(talk("connected|wait 30"), u"open smtp:25|close => " + timedOut + u"|not ready");
    }

    /// Each row: encrypted how, what the server says, what is sent, and after "=>" how it ends.
    void encryptsAndLogsIn() {
        constexpr MailSecurity start = MailSecurity::StartTls;
        constexpr MailSecurity tls = MailSecurity::Tls;
        const auto talk = [](MailSecurity security, const QByteArray& replies, bool isInjected = false) {
            ScriptedServer server;
            server.isInjected = isInjected;
            server.session.Connect(servers(true, security), u"me@here.de"_qs);
            server.Play(QByteArray(replies).replace("/", "\r\n"));
            const QStringList ends = server.events.filter(QRegularExpression(u"^(failed: |ready|not ready)"_qs));
            return QString(server.talk.mid(1).join(u'|') + u" => " + ends.join(u'|'));
        };
        const QString plain = u"AUTH PLAIN AHVzZXIAc2VjcmV0"_qs;
        const QString hello = u"encrypt|EHLO here.de|"_qs;
        const QString both = u"EHLO here.de|STARTTLS|"_qs + hello;
        const QByteArray hi = "connected|encrypted|220 hi|";
        const QByteArray offer = "connected|220 hi|250-x/250 STARTTLS|220 go|";
        const auto failed = [](const QString& why) { return QString(u"close => failed: "_qs + why + u"|not ready"); };
        QCOMPARE(talk(tls, hi + "250-x/250 AUTH LOGIN PLAIN|235 in"), QString(hello + plain + u" => ready"));
        QCOMPARE(talk(tls, hi + "250-x/250 auth=plain|235 in"), QString(hello + plain + u" => ready"));
        QCOMPARE(talk(tls, hi + "250-x/250 AUTH LOGIN XPLAIN|334 VXNlcm5hbWU6|334 UGFzc3dvcmQ6|235 in"),
                 QString(hello + u"AUTH Login|dXNlcg==|c2VjcmV0 => ready"));
        QCOMPARE(talk(tls, hi + "250 AUTH PLAIN"), QString(hello + failed(u"The server offers neither of the logins "
                                                                          "PLAIN and LOGIN"_qs))); // that is its name
        QCOMPARE(talk(tls, hi + "250-x/250 AUTH PLAIN|535 no"), QString(hello + plain + u'|' + failed(u"535 no"_qs)));
        QCOMPARE(talk(tls, hi + "250-x/250 AUTH PLAIN|334 "), QString(hello + plain + u'|' + failed(u"334"_qs)));
        QCOMPARE(talk(tls, hi + "250-x/250 AUTH PLAIN|closed"),
                 QString(hello + plain + u'|' + failed(u"Host Login Failed!"_qs)));
        QCOMPARE(talk(tls, "connected|refused|closed"), QString(u"encrypt|"_qs + failed(u"expired"_qs)));
        QCOMPARE(talk(tls, "connected|wait 30"), QString(u"encrypt|close => "_qs + timedOut + u"|not ready"));
        // What was offered in the clear counts no more.
        QCOMPARE(talk(start, "connected|220 hi|250-x/250-AUTH PLAIN/250 starttls|220 go|encrypted|250 x"),
                 QString(both + failed(u"The server offers neither of the logins PLAIN and LOGIN"_qs)));
        QCOMPARE(talk(start, offer + "encrypted|250-x/250 AUTH PLAIN|235 in"), QString(both + plain + u" => ready"));
        QCOMPARE(talk(start, "connected|220 hi|250-x/250 XSTARTTLS|250 AUTH LOGIN|wait 9"),
                 QString(u"EHLO here.de|"_qs + failed(u"The server offers no encryption"_qs)));
        QCOMPARE(talk(start, "connected|220 hi|250-x/250 STARTTLS|454 no"),
                 QString(u"EHLO here.de|STARTTLS|"_qs + failed(u"454 no"_qs)));
        QCOMPARE(talk(start, offer, true),
                 QString(u"EHLO here.de|STARTTLS|encrypt|"_qs +
                         failed(u"The server sent unencrypted text where encryption begins"_qs)));
    }

    void findsPasswords() {
        const QByteArray netrc = "# machine here.de login a password no\n"
                                 "default login a password no\n"
                                 "machine other.de login a password no\n"
                                 "machine here.de password no account x\n"
                                 "macdef init\nmachine here.de login a password no\n\n"
                                 "machine Here.DE.\n\tlogin a # who\n\tpassword #1\\\n"
                                 "machine \"b\u00FCcher.de\" login \"a b\" password \"\\\"2 \\\\\"";
        QCOMPARE(modNetrc::PasswordOf(netrc, u"here.de"_qs, u"a"_qs), QByteArray("#1\\"));
        QCOMPARE(modNetrc::PasswordOf(netrc, u"xn--bcher-kva.de"_qs, u"a b"_qs), QByteArray("\"2 \\"));
        for (const QString& user : {u"A"_qs, u""_qs, u"b"_qs})
            QCOMPARE(modNetrc::PasswordOf(netrc, u"here.de"_qs, user), QByteArray());
        QCOMPARE(modNetrc::PasswordOf("machine here.de login a password \"1", u"here.de"_qs, u"a"_qs), QByteArray());
    }

    void sends() {
        /// The commands, and after "=>" how it ends.
        const auto talk = [](const QByteArray& replies) {
            ScriptedServer server;
            server.Greet();
            server.talk.clear();
            server.SendMail({u"a@x.de"_qs, u"b@x.de"_qs});
            server.events.clear();
            server.Play(replies);
            const QStringList ends = server.events.filter(QRegularExpression(u"^(failed: |accepted|refused)"_qs));
            return QString((server.session.IsBusy() ? u"busy: "_qs : QString()) + server.talk.join(u'|') + u" => " +
                           ends.join(u'|'));
        };
        const QString one = u"MAIL FROM: <me@here.de>|RCPT TO: <a@x.de>"_qs;
        const QString two = one + u"|RCPT TO: <b@x.de>";
        const QString all = two + u"|DATA";
        QCOMPARE(talk("250 1|251 2|250 3|354 4|250 5"), all + u" => accepted");
        QCOMPARE(talk("250 1|250 2|550 no b"), two + u"|close => failed: 550 no b|refused");
        QCOMPARE(talk("250 1|252 perhaps"), one + u"|close => failed: 252 perhaps|refused");
        QCOMPARE(talk("250 1|250 2|250 3|wait 60"), QString(all + u"|close => " + timedOut + u"|refused"));
        QCOMPARE(talk("250 1|250 2|250 3|354 4|554 spam"), all + u"|close => failed: 554 spam|refused");
    }

    void holdsBackWhileTheSocketIsFull() {
        ScriptedServer server;
        server.Greet();
        server.SendMail({u"a@x.de"_qs});
        server.unsent = server.untaken = 4097;
        server.Play("250 1|250 2|354 4");
        QVERIFY(server.body.isEmpty());
        // Only what the peer takes counts as progress, after the last byte too.
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
        MailServers hostile = servers();
        hostile.usePopAuthentication = true;
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

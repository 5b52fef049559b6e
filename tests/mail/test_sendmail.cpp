// The mail client against real servers on this machine, and its properties.
#include "Fakes.h"
#include "HostProcess.h"
#include "MailDispatch.h"
#include "PlatformServices.h"
#include "ScratchFolder.h"
#include "StringTable.h"
#include "SystemWorld.h"
#include "Unreadable.h"
#include "clsSendMail.h"
#include "modForeignText.h"
#include "modRegularFile.h"

#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

namespace {

/// One of the servers of tests/support, which prints its port first.
class Server final {
  public:
    explicit Server(const QString& script) {
        m_process.Start({QStringLiteral(SYSTEM_PYTHON), QStringLiteral(TEST_SUPPORT "/") + script});
        first = m_process.Line().trimmed();
        port = first.toInt();
        if (first.isEmpty())
            qFatal("%s does not start: %s", qPrintable(script), m_process.All().constData());
    }
    QJsonObject Next() { return QJsonDocument::fromJson(m_process.Line()).object(); }
    QByteArray first;
    int port = 0;

  private:
    HostProcess m_process;
};

struct Client {
    explicit Client(const QMap<QString, QString>& stored = {}) : settings(keeping(stored)), mail(Services()) {
        QObject::connect(&mail, &clsSendMail::Status, &mail, [this](const QString& text) { statuses += text; });
        QObject::connect(&mail, &clsSendMail::SendFailed, &mail, [this](const QString& text) { failures += text; });
    }
    /// Fills in what every mail needs.
    void Prepare(int port) {
        mail.SetSMTPPort(port);
        mail.SetFrom(u"kalvenor@hier.de"_qs);
        mail.SetRecipient(u"anna@dort.de"_qs);
        mail.Message = u"Guten Tag"_qs;
    }
    bool Send() {
        QSignalSpy ended(&mail, &clsSendMail::SendEnded);
        mail.Send();
        return (ended.size() == 1 || ended.wait(30'000)) && ended.first().first().toBool();
    }
    MailServices Services() { return {settings, names, *services.clock, passwords, texts}; }
    MemorySettings settings;
    FakeNameService names;
    FakePasswordStore passwords;
    StringTable texts{Language::English};
    PlatformServices services = MakePlatformServices();
    clsSendMail mail;
    QStringList statuses;
    QStringList failures;

  private:
    static MemorySettings keeping(const QMap<QString, QString>& stored) {
        MemorySettings kept;
        for (const QString& key : stored.keys())
            kept.values[u"Postrelle/Settings/"_qs + key] = stored[key];
        return kept;
    }
};

/// Does something just before the first queued call to a mail client.
class BeforeCall final : public QObject {
  public:
    explicit BeforeCall(std::function<void()> what) : m_what(std::move(what)) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::MetaCall && qobject_cast<clsSendMail*>(receiver) != nullptr && m_what)
            std::exchange(m_what, nullptr)();
        return false;
    }

  private:
    std::function<void()> m_what;
};

} // namespace

class TestSendMail final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void logsInByPop3AndSmtp() {
        Server smtp(u"smtp_server.py"_qs);
        const Server pop(u"pop3_server.py"_qs);
        Client client;
        client.Prepare(smtp.port);
        client.mail.SetSMTPHost(u"127.0.0.1"_qs);
        client.mail.SetPOP3Host(u"127.0.0.1"_qs);
        client.mail.POP3Port = pop.port;
        client.mail.SetUsername(u"kalvenor"_qs);
        client.mail.Password = u"wrong"_qs;
        client.mail.SetUsePopAuthentication(true);
        client.mail.SetUseAuthentication(true);
        QVERIFY(!client.Send());
        QCOMPARE(client.failures, QStringList{u"-ERR [AUTH] Authentication failed."_qs});
        client.mail.Password = u"secret"_qs;
        QVERIFY2(client.Send(), qPrintable(client.failures.join(u'|')));
        const QJsonObject login = smtp.Next();
        QCOMPARE(login[u"mechanism"], QJsonValue(u"LOGIN"_qs));
        QCOMPARE(login[u"password"], QJsonValue(u"secret"_qs));
        const QJsonObject mail = smtp.Next();
        QCOMPARE(mail[u"options"].toArray().first().toString().toLower(), u"auth=kalvenor@hier.de"_qs);
        QVERIFY(mail[u"content"].toString().contains(u"\r\n\r\nGuten Tag\r\n"));
        QCOMPARE(client.statuses.mid(client.statuses.size() - 2),
                 (QStringList{u"Transmission Complete..."_qs, u"Closing Connection..."_qs}));
        // A file that vanishes while the mail is sent ends it without the end mark, so the server drops it.
        const ScratchFolder scratch;
        QVERIFY(scratch.Write(u"attached"_qs, {}));
        client.mail.SetAttachment(scratch.Path("attached"));
        QVERIFY(QFile::remove(scratch.Path("attached")) && !client.Send());
        QCOMPARE(client.failures.last(), u"attached: The file you tried to attach does not exist"_qs);
    }

    /// Each row: where the mail goes, what is set besides, how it ends, and what its server tells. A server that tells
    /// more than it should puts the rows behind it out of step.
    void encrypts() {
        if (!SystemWorld::CanMake("own issuers"))
            QSKIP("no issuer of the test's own is trusted");
        Server servers(u"tls_servers.py"_qs);
        const QJsonObject world = QJsonDocument::fromJson(servers.first).object();
        const ScratchFolder scratch;
        const QString tls = u"2"_qs;
        const QString startTls = u"1"_qs;
        const QString stays = u"No password is stored for kalvenor at localhost"_qs;
        const QString clear = u"EHLO hier.de|STARTTLS"_qs;
        QVERIFY(scratch.Write(u"ca"_qs, world[u"issuer"].toString().toLatin1()) && scratch.Write(u"empty"_qs, "no"));
        QVERIFY(scratch.Write(u"netrc"_qs, "machine LOCALHOST login kalvenor password \"from file\""));
        QVERIFY(scratch.Write(u"others"_qs, "machine localhost login anna password 1"));
        QVERIFY(scratch.Write(u"kalvenor.netrc"_qs, "machine localhost login kalvenor password credential"));
        constexpr auto own = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
        for (const char* file : {"netrc", "others"})
            QVERIFY(QFile::setPermissions(scratch.Path(file), own));
        struct Row {
            const char* server;
            QString security;
            QMap<QString, QString> set;
            QString failure; ///< its beginning
            QString told;
        };
        const QMap<QString, QString> noStore{{u"stored"_qs, QString()}};
        const auto with = [&](const char* name, const QString& value) {
            return QMap<QString, QString>{{QLatin1String(name), value}};
        };
        const auto file = [&](const char* name) {
            return QMap<QString, QString>{{u"stored"_qs, {}}, {u"PasswordFile"_qs, scratch.Path(name)}};
        };
        const std::vector<Row> rows{
            {"tls", tls, {}, {}, u"PLAIN s\u00E4cret"_qs},
            {"starttls", startTls, {}, {}, u"LOGIN s\u00E4cret"_qs},
            {"tls", tls, with("UseAuthentication", u"0"_qs), {}, {}},
            {"tls", tls, with("lines", u"20000"_qs), {}, u"PLAIN s\u00E4cret"_qs},
            {"tls", tls, file("netrc"), {}, u"PLAIN from file"_qs},
            {"tls", tls, with("credentials", scratch.Path()), {}, u"PLAIN credential"_qs},
            {"tls", tls, file("others"), stays, {}},
            {"tls", tls, file("none"), u"The password file "_qs, {}},
            {"tls", tls, noStore, stays, {}},
            {"tls", tls, with("store", u"2"_qs), stays + u". There is no password store", {}},
            {"tls", tls, with("store", u"3"_qs), u"The password store does not answer"_qs, {}},
            {"tls", tls, with("store", u"4"_qs), u"The password store refuses: no\uFFFD"_qs, {}},
            {"tls", tls, with("stored", u"wrong"_qs), u"535 "_qs, u"PLAIN wrong"_qs},
            {"tls",
             tls,
             with("host", u"127.0.0.1"_qs),
             u"The certificate of 127.0.0.1 is refused: The host name "_qs,
             {}},
            {"tls", tls, with("CAFile", {}), u"The certificate of localhost is refused: "_qs, {}},
            {"tls", tls, with("CAFile", scratch.Path("empty")), u"The CA file "_qs, {}},
            {"tls", tls, with("CAFile", scratch.Path("none")), u"The CA file "_qs, {}},
            {"tls", u"7"_qs, {}, u"MailSecurity is neither 0, 1 nor 2"_qs, {}},
            {"tls", u"tls"_qs, {}, u"MailSecurity is neither 0, 1 nor 2"_qs, {}},
            {"tls", tls, with("UsePopAuthentication", u"1"_qs), u"POP3 before SMTP "_qs, {}},
            {"expired", startTls, {}, u"The certificate of localhost is refused: The certificate has expired"_qs, {}},
            {"plain", startTls, {}, u"The server offers no encryption"_qs, {}},
            {"plain", tls, {}, u"The encryption with localhost failed: "_qs, {}},
            {"injecting", startTls, {}, u"The server sent unencrypted text "_qs, clear},
            {"refused", startTls, {}, u"The certificate of localhost is refused: "_qs, clear},
            {"silent", startTls, with("ConnectTimeout", u"1"_qs), u"Timeout occurred: "_qs, clear},
            {"plain", u"0"_qs, {}, {}, u"LOGIN "_qs}, // as it always was: no password
        };
        for (const Row& row : rows) {
            QMap<QString, QString> stored{{u"PersistentSettings"_qs, u"1"_qs},
                                          {u"UseAuthentication"_qs, u"1"_qs},
                                          {u"Username"_qs, u"kalvenor"_qs},
                                          {u"MailSecurity"_qs, row.security},
                                          {u"CAFile"_qs, scratch.Path("ca")}};
            stored.insert(row.set);
            Client client(stored);
            const QString host = row.set.value(u"host"_qs, u"localhost"_qs);
            client.passwords.passwords[u"kalvenor:smtp:"_qs + host + u":kalvenor"] =
                row.set.value(u"stored"_qs, u"s\u00E4cret"_qs).toUtf8();
            client.passwords.failing = static_cast<PasswordAnswer::Outcome>(row.set.value(u"store"_qs).toInt());
            qputenv("CREDENTIALS_DIRECTORY", row.set.value(u"credentials"_qs).toLocal8Bit());
            client.Prepare(world[u"ports"][QLatin1String(row.server)].toInt());
            client.mail.SetSMTPHost(host);
            const QString more = u"and so on, and so on, and so on, and so on, and so on\r\n"_qs.repeated(
                row.set.value(u"lines"_qs).toInt());
            client.mail.Message += u"\r\n" + more;
            const bool isSent = client.Send();
            const QString here = QString::number(&row - rows.data()) + u": "_qs + client.failures.join(u'|');
            QVERIFY2(isSent == row.failure.isEmpty() && client.failures.size() == (isSent ? 0 : 1), qPrintable(here));
            QVERIFY2(isSent || client.failures.first().startsWith(row.failure), qPrintable(here));
            if (row.told.startsWith(u"EHLO")) {
                QCOMPARE(servers.Next()[u"clear"].toVariant().toStringList().join(u'|'), row.told);
            } else if (!row.told.isEmpty()) {
                const QJsonObject login = servers.Next();
                QCOMPARE(login[u"mechanism"].toString() + u' ' + login[u"password"].toString(), row.told);
            }
            if (isSent)
                QVERIFY(servers.Next()[u"content"].toString().contains(u"\r\n\r\nGuten Tag\r\n" + more));
        }
        qunsetenv("CREDENTIALS_DIRECTORY");
    }

    /// Between the end of Connect and the slot that follows it, nothing is under way that Shutdown could end.
    void doesNotConnectAnewWhenGivenUp() {
        const Server smtp(u"smtp_server.py"_qs);
        Client client({{u"PersistentSettings"_qs, u"1"_qs}, {u"RemotePort"_qs, QString::number(smtp.port)}});
        MailOrder order;
        order.smtpHost = u"127.0.0.1"_qs;
        order.sender = order.recipient = u"anna@dort.de"_qs;
        MailDispatch dispatch(order, client.Services());
        BeforeCall end([&dispatch] { dispatch.Shutdown(); });
        QSignalSpy ended(&dispatch, &MailDispatch::Ended);
        int connections = 0;
        dispatch.Begin([&connections](const QString& /*host*/) { return ++connections > 0; });
        QVERIFY(ended.wait());
        QCOMPARE(ended.first().first().toString(), u"Socket not Open"_qs);
        QCOMPARE(connections, 1);
    }

    void refusesValues() {
        Client client;
        client.mail.SetFrom(u"nobody"_qs);
        client.mail.SetRecipient(u"a@x.de; b@x"_qs);
        client.mail.SetCcRecipient(u"@x.de"_qs);
        client.mail.SetBccRecipient(u"a b@x.de"_qs);
        client.mail.SetSMTPHost(u"a host"_qs);
        client.mail.SetSMTPPort(65536);
        client.mail.SetAttachment(u"; /"_qs);
        const ScratchFolder scratch;
        QVERIFY(scratch.Write(u"locked"_qs, {}));
        {
            const Unreadable locked(scratch.Native(u"locked"_qs));
            client.mail.SetAttachment(scratch.Path("locked"));
            QFile file;
            const std::error_code error = modRegularFile::Open(scratch.Native(u"locked"_qs), file);
            QVERIFY(error && client.failures.last() == modForeignText::OfError(error));
        }
        QCOMPARE(client.failures.size(), 8);
        QVERIFY(!client.Send());
        QCOMPARE(client.failures.last(), u"Missing or Invalid Sender E-mail Address"_qs);
    }

    void keepsSettingsButNoPassword() {
        Client client;
        client.mail.SetUsername(u"one"_qs);
        QVERIFY(client.settings.values.isEmpty());
        client.mail.SetPersistentSettings(true);
        client.mail.Password = u"secret"_qs;
        client.mail.SetUsername(u"two"_qs);
        client.mail.SetSMTPPort(2525);
        QCOMPARE(client.settings.values.values(), (QStringList{u"1"_qs, u"2525"_qs, u"two"_qs}));
        client.settings.values[u"Postrelle/Settings/UseAuthentication"_qs] = u"True"_qs;
        const MailSettings again(client.settings);
        QVERIFY(again.Get().useAuthentication);
        QCOMPARE(again.Get().username, u"two"_qs);
        QCOMPARE(again.Get().smtpPort, 2525);
    }
};

QTEST_GUILESS_MAIN(TestSendMail)
#include "test_sendmail.moc"

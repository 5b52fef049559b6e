// The mail client against real servers on this machine, and its properties.
#include "Fakes.h"
#include "HostProcess.h"
#include "MailDispatch.h"
#include "PlatformServices.h"
#include "ScratchFolder.h"
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
        port = m_process.Line().trimmed().toInt();
        if (port == 0)
            qFatal("%s does not start: %s", qPrintable(script), m_process.All().constData());
    }
    QJsonObject Next() { return QJsonDocument::fromJson(m_process.Line()).object(); }
    int port = 0;

  private:
    HostProcess m_process;
};

struct Client {
    Client() {
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
    MemorySettings settings;
    FakeNameService names;
    PlatformServices services = MakePlatformServices();
    clsSendMail mail{settings, names, *services.clock};
    QStringList statuses;
    QStringList failures;
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

    /// Between the end of Connect and the slot that follows it, nothing is under way that Shutdown could end.
    void doesNotConnectAnewWhenGivenUp() {
        const Server smtp(u"smtp_server.py"_qs);
        Client client;
        client.settings.values = {{u"Postrelle/Settings/PersistentSettings"_qs, u"1"_qs},
                                  {u"Postrelle/Settings/RemotePort"_qs, QString::number(smtp.port)}};
        MailOrder order;
        order.smtpHost = u"127.0.0.1"_qs;
        order.sender = order.recipient = u"anna@dort.de"_qs;
        MailDispatch dispatch(order, client.settings, client.names, *client.services.clock);
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

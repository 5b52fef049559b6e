// The lookup against a real name server, a silent one and one whose replies others try to forge; all on loopback.
#include "CachedNameService.h"
#include "Fakes.h"
#include "MXPackets.h"
#include "MailHostLookup.h"

#include <QNetworkDatagram>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

using namespace MXPackets;
using namespace std::chrono_literals;

namespace {

const QString noServerText = QStringLiteral("No DNS entries found, MX Query cannot contine.");
const QString noDomainText = QStringLiteral("No Valid Domain Specified");
const QString notSentText = QStringLiteral("Problem sending MX query");
const QString notReceivedText = QStringLiteral("Problem receiving MX query");

/// dnsmasq with a few domains of its own and nobody to ask about others.
class NameServerProcess final {
  public:
    ~NameServerProcess() {
        m_process.kill();
        m_process.waitForFinished();
    }
    [[nodiscard]] bool Start() {
        for (int attempt = 0; attempt < 5; ++attempt) { // another program may take the port before dnsmasq does
            QUdpSocket probe;
            if (!probe.bind(QHostAddress::LocalHost))
                continue;
            port = probe.localPort();
            probe.close();
            if (started())
                return true;
        }
        return false;
    }
    quint16 port = 0;

  private:
    [[nodiscard]] bool started() {
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(QStringLiteral("/usr/sbin/dnsmasq"),
                        {QStringLiteral("--no-daemon"), QStringLiteral("--conf-file=/dev/null"),
                         QStringLiteral("--port=%1").arg(port), QStringLiteral("--listen-address=127.0.0.1"),
                         QStringLiteral("--bind-interfaces"), QStringLiteral("--no-resolv"),
                         QStringLiteral("--no-hosts"), QStringLiteral("--local=/test/"),
                         QStringLiteral("--mx-host=example.test,backup.example.test,20"),
                         QStringLiteral("--mx-host=example.test,mail.example.test,10"),
                         QStringLiteral("--mx-host=inner.test,mail.inner.test,5"),
                         QStringLiteral("--host-record=www.example.test,127.0.0.1")});
        QByteArray output;
        while (!output.contains("started, version") && m_process.waitForReadyRead())
            output += m_process.readAll();
        if (output.contains("started, version"))
            return true;
        qWarning() << m_process.errorString() << output;
        m_process.kill();
        m_process.waitForFinished();
        return false;
    }
    QProcess m_process;
};

FakeNameService nameServiceAt(quint16 port, const QString& localDomain = {}) {
    FakeNameService names;
    names.known = {{{QStringLiteral("127.0.0.1"), port}}, localDomain};
    return names;
}

/// Everything a lookup said, in one list: "found: HOST" or "failed: TEXT".
class Outcome final : public QObject {
    Q_OBJECT
  public:
    explicit Outcome(MailHostLookup& lookup) {
        connect(&lookup, &MailHostLookup::Found, this, [this](const QString& host) { take(u"found: "_qs + host); });
        connect(&lookup, &MailHostLookup::Failed, this, [this](const QString& text) { take(u"failed: "_qs + text); });
    }
    /// The outcome of `domain`; whatever came too early or too often is in it too.
    QString Of(MailHostLookup& lookup, const QString& domain) {
        lookup.Begin(domain);
        m_said.prepend(m_said.isEmpty() ? QString() : u"from inside of Begin"_qs);
        return Next();
    }
    QString Next() {
        QSignalSpy said(this, &Outcome::Said);
        if (m_said.join(QString()).isEmpty() && !said.wait(10000))
            return u"nothing"_qs;
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        return std::exchange(m_said, {}).join(QString());
    }
  Q_SIGNALS:
    void Said();

  private:
    void take(const QString& line) {
        m_said.append(line);
        Q_EMIT Said();
    }
    QStringList m_said;
};

/// Answers each query with what the test makes of it.
class ScriptedServer final : public QObject {
    Q_OBJECT
  public:
    ScriptedServer() {
        bound = socket.bind(QHostAddress::LocalHost);
        connect(&socket, &QUdpSocket::readyRead, this, [this] {
            while (socket.hasPendingDatagrams()) {
                queries.append(socket.receiveDatagram());
                if (onQuery)
                    onQuery(queries.last());
            }
        });
    }
    void Send(const QNetworkDatagram& query, const QByteArray& packet) {
        socket.writeDatagram(packet, query.senderAddress(), static_cast<quint16>(query.senderPort()));
    }
    QUdpSocket socket;
    bool bound = false;
    QList<QNetworkDatagram> queries;
    std::function<void(const QNetworkDatagram&)> onQuery;
};

QByteArray hostReply(const QByteArray& domain, const QByteArray& host, int identifier = 4575) {
    return Header(1, identifier) + Question(domain) + MX(10, Name(host));
}

} // namespace

class TestMailHostLookup final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { QVERIFY(m_server.Start()); }

    void asksANameServer_data() {
        QTest::addColumn<QString>("domain");
        QTest::addColumn<QString>("localDomain");
        QTest::addColumn<QString>("outcome");
        const auto row = [](const char* name, const QString& domain, const QString& localDomain,
                            const QString& outcome) { QTest::newRow(name) << domain << localDomain << outcome; };
        row("best of two", u"example.test"_qs, {}, u"found: mail.example.test"_qs);
        row("capitals", u"EXAMPLE.TEST"_qs, {}, u"found: mail.example.test"_qs);
        row("empty: the local one", {}, u"inner.test"_qs, u"found: mail.inner.test"_qs);
        row("a name without mail", u"www.example.test"_qs, {}, u"found: "_qs);
        row("nobody knows it", u"example.elsewhere"_qs, u"inner.test"_qs, u"found: "_qs);
        row("within the local domain", u"pc.inner.test"_qs, u"inner.test"_qs, u"found: mail.inner.test"_qs);
        row("deep within it", u"a.b.pc.inner.test"_qs, u"Inner.Test"_qs, u"found: mail.inner.test"_qs);
        row("the local domain itself", u"none.test"_qs, u"none.test"_qs, u"found: "_qs);
        row("shortened to less than five characters", u"none.test"_qs, u"test"_qs, u"found: "_qs);
    }
    void asksANameServer() {
        QFETCH(QString, domain);
        QFETCH(QString, localDomain);
        const FakeNameService names = nameServiceAt(m_server.port, localDomain);
        MailHostLookup lookup(names);
        Outcome outcome(lookup);
        QTEST(outcome.Of(lookup, domain), "outcome");
    }

    void refuses_data() {
        QTest::addColumn<QString>("server");
        QTest::addColumn<QString>("domain");
        QTest::addColumn<QString>("localDomain");
        QTest::addColumn<QString>("text");
        const QString server = u"127.0.0.1"_qs;
        QTest::newRow("no server") << QString() << u"example.test"_qs << QString() << noServerText;
        QTest::newRow("four characters") << server << u"a.de"_qs << QString() << noDomainText;
        QTest::newRow("no domain at all") << server << QString() << QString() << noDomainText;
        QTest::newRow("short local domain") << server << QString() << u"a.de"_qs << noDomainText;
        QTest::newRow("no name") << server << u"a..example.test"_qs << QString() << noDomainText;
        QTest::newRow("no address") << u"name.server"_qs << u"example.test"_qs << QString() << notSentText;
    }
    void refuses() {
        QFETCH(QString, server);
        QFETCH(QString, domain);
        QFETCH(QString, localDomain);
        QFETCH(QString, text);
        ScriptedServer scripted;
        QVERIFY(scripted.bound);
        FakeNameService names = nameServiceAt(scripted.socket.localPort(), localDomain);
        names.known.servers.front().address = server;
        if (server.isEmpty())
            names.known.servers.clear();
        MailHostLookup lookup(names);
        Outcome outcome(lookup);
        QCOMPARE(outcome.Of(lookup, domain), u"failed: "_qs + text);
        QVERIFY(scripted.queries.isEmpty());
    }

    void givesASilentServerUp() {
        ScriptedServer server;
        const FakeNameService names = nameServiceAt(server.socket.localPort());
        MailHostLookup lookup(names, 500ms);
        Outcome outcome(lookup);
        QCOMPARE(outcome.Of(lookup, u"example.test"_qs), u"failed: "_qs + notReceivedText);
        QCOMPARE(server.queries.size(), 1);
        // Too late, and another query must not get it either: it is for another name.
        server.onQuery = [&](const QNetworkDatagram& query) {
            server.Send(query, hostReply("example.test", "late.example.test"));
            server.Send(query, hostReply("inner.test", "mail.inner.test"));
        };
        QCOMPARE(outcome.Of(lookup, u"inner.test"_qs), u"found: mail.inner.test"_qs);
    }

    void ignoresForgedReplies() {
        ScriptedServer server;
        QUdpSocket stranger;
        QUdpSocket neighbour;
        QVERIFY(stranger.bind(QHostAddress::LocalHost));
        QVERIFY(neighbour.bind(QHostAddress(u"127.0.0.2"_qs), server.socket.localPort()));
        server.onQuery = [&](const QNetworkDatagram& query) {
            const auto port = static_cast<quint16>(query.senderPort());
            const QByteArray forged = hostReply("example.test", "forged.test");
            stranger.writeDatagram(forged, query.senderAddress(), port);
            neighbour.writeDatagram(forged, query.senderAddress(), port);
            server.Send(query, QByteArray());
            server.Send(query, query.data());
            server.Send(query, hostReply("example.test", "forged.test", 4576));
            server.Send(query, hostReply("other.test", "forged.test"));
            server.Send(query, hostReply("example.test", "mail.example.test"));
            server.Send(query, hostReply("example.test", "second.test"));
        };
        const FakeNameService names = nameServiceAt(server.socket.localPort());
        MailHostLookup lookup(names);
        Outcome outcome(lookup);
        QCOMPARE(outcome.Of(lookup, u"example.test"_qs), u"found: mail.example.test"_qs);
    }

    void forgetsTheLookupBefore() {
        ScriptedServer server;
        const FakeNameService names = nameServiceAt(server.socket.localPort(), u"test"_qs);
        MailHostLookup lookup(names, 10s);
        Outcome outcome(lookup);
        lookup.Begin(u"a.de"_qs); // its failure is queued
        lookup.Begin(u"first.test"_qs);
        server.onQuery = [&](const QNetworkDatagram& query) {
            if (query.data().contains("second"))
                server.Send(query, Header(0) + Question("second.test"));
        };
        QCOMPARE(outcome.Of(lookup, u"second.test"_qs), u"found: "_qs);
        lookup.Begin(u"a.de"_qs);
        lookup.Cancel();
        QCOMPARE(outcome.Of(lookup, u"second.test"_qs), u"found: "_qs);
    }

    void mayBeginAgainOrDieWhenItTells() {
        const FakeNameService names = nameServiceAt(m_server.port);
        auto lookup = std::make_unique<MailHostLookup>(names);
        QStringList hosts;
        connect(lookup.get(), &MailHostLookup::Found, this, [&](const QString& host) {
            hosts.append(host);
            if (hosts.size() == 1)
                lookup->Begin(u"inner.test"_qs);
            else
                lookup.reset();
        });
        lookup->Begin(u"example.test"_qs);
        QTRY_VERIFY(!lookup);
        QCOMPARE(hosts, QStringList({u"mail.example.test"_qs, u"mail.inner.test"_qs}));
    }

    void findsTheServersOutOnceAndNotBeforeTheFirstQuery() {
        auto source = std::make_unique<FakeNameService>(nameServiceAt(m_server.port));
        const FakeNameService& asked = *source;
        const CachedNameService names(std::move(source));
        MailHostLookup lookup(names);
        Outcome outcome(lookup);
        QCOMPARE(asked.discoveries, 0);
        for (int query = 0; query < 2; ++query)
            QCOMPARE(outcome.Of(lookup, u"inner.test"_qs), u"found: mail.inner.test"_qs);
        QCOMPARE(asked.discoveries, 1);
    }

  private:
    NameServerProcess m_server;
};

QTEST_GUILESS_MAIN(TestMailHostLookup)
#include "test_mailhostlookup.moc"

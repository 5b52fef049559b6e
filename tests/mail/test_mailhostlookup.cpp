// The lookup against a real name server, a silent one and one whose replies others try to forge; all on loopback.
#include "Fakes.h"
#include "MXPackets.h"
#include "MailHostLookup.h"
#include "NameServerProcess.h"

#include <QNetworkDatagram>

using namespace MXPackets;
using namespace std::chrono_literals;

namespace {

FakeNameService nameServiceAt(quint16 port, const QString& localDomain = {}) {
    FakeNameService names;
    names.known = {{{u"127.0.0.1"_qs, port}}, localDomain};
    return names;
}

/// A lookup and everything it says.
struct Asker {
    explicit Asker(const FakeNameService& services, std::chrono::milliseconds timeout = 10s)
        : names(services), lookup(names, timeout) {
        QObject::connect(&lookup, &MailHostLookup::Found, &lookup, [this](const QString& host) { said += host; });
        QObject::connect(&lookup, &MailHostLookup::Failed, &lookup, [this](const QString& text) { said += text; });
    }
    /// The outcome of `domain`; whatever came too early or too often is in it too.
    QString Of(const QString& domain) {
        lookup.Begin(domain);
        if (!QTest::qWaitFor([this] { return !said.isEmpty(); }, 10'000))
            return u"nothing"_qs;
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
        return std::exchange(said, {}).join(u'|');
    }
    FakeNameService names;
    MailHostLookup lookup;
    QStringList said;
};

/// Answers each query with what the test makes of it.
struct ScriptedServer {
    ScriptedServer() {
        if (!socket.bind(QHostAddress::LocalHost))
            qFatal("no port for the server");
        QObject::connect(&socket, &QUdpSocket::readyRead, &socket, [this] {
            while (socket.hasPendingDatagrams()) {
                queries.append(socket.receiveDatagram());
                if (onQuery)
                    onQuery(queries.last());
            }
        });
    }
    void Send(const QNetworkDatagram& query, const QByteArray& packet) { SendFrom(socket, query, packet); }
    static void SendFrom(QUdpSocket& sender, const QNetworkDatagram& query, const QByteArray& packet) {
        sender.writeDatagram(packet, query.senderAddress(), static_cast<quint16>(query.senderPort()));
    }
    FakeNameService Names() const { return nameServiceAt(socket.localPort()); }
    QUdpSocket socket;
    QList<QNetworkDatagram> queries;
    std::function<void(const QNetworkDatagram&)> onQuery;
};

QByteArray hostReply(const QByteArray& domain, const QByteArray& host, int identifier = 4575) {
    return Header(1, identifier) + Question(domain) + MX(10, Name(host));
}

} // namespace

class TestMailHostLookup final : public QObject {
    Q_OBJECT

    NameServerProcess m_server;

  private Q_SLOTS:
    void initTestCase() { QVERIFY(m_server.Start()); }

    void asksANameServer() {
        const auto hostOf = [this](const QString& domain, const QString& localDomain = {}) {
            return Asker(nameServiceAt(m_server.port, localDomain)).Of(domain);
        };
        QCOMPARE(hostOf(u"EXAMPLE.TEST"_qs), u"mail.example.test"_qs); // the better one of two
        QCOMPARE(hostOf(u"www.example.test"_qs), QString());           // takes no mail
        QCOMPARE(hostOf(u"a.pc.inner.test"_qs, u"Inner.Test"_qs), u"mail.inner.test"_qs);
        QCOMPARE(hostOf(u"example.elsewhere"_qs, u"inner.test"_qs), QString());
        QCOMPARE(Asker({}).Of(u"example.test"_qs), u"No DNS entries found, MX Query cannot contine."_qs);
        QCOMPARE(hostOf(u"a..example.test"_qs), u"No Valid Domain Specified"_qs);
    }

    void givesASilentServerUp() {
        ScriptedServer server;
        Asker asker(server.Names(), 500ms);
        QCOMPARE(asker.Of(u"example.test"_qs), u"Problem receiving MX query"_qs);
        QCOMPARE(server.queries.size(), 1);
        // Too late, and another query must not get it either: it is for another name.
        server.onQuery = [&](const QNetworkDatagram& query) {
            server.Send(query, hostReply("example.test", "late.example.test"));
            server.Send(query, hostReply("inner.test", "mail.inner.test"));
        };
        QCOMPARE(asker.Of(u"inner.test"_qs), u"mail.inner.test"_qs);
    }

    void forgetsTheLookupBefore() {
        Asker asker(nameServiceAt(m_server.port));
        asker.lookup.Begin(u"a.de"_qs); // its failure is queued
        asker.lookup.Begin(u"example.test"_qs);
        QCOMPARE(asker.Of(u"inner.test"_qs), u"mail.inner.test"_qs);
        asker.lookup.Begin(u"a.de"_qs);
        asker.lookup.Cancel();
        QCOMPARE(asker.Of(u"inner.test"_qs), u"mail.inner.test"_qs);
    }

    void ignoresForgedReplies() {
        ScriptedServer server;
        QUdpSocket stranger;
        QUdpSocket neighbour;
        QVERIFY(stranger.bind(QHostAddress::LocalHost));
        QVERIFY(neighbour.bind(QHostAddress(u"127.0.0.2"_qs), server.socket.localPort()));
        server.onQuery = [&](const QNetworkDatagram& query) {
            const QByteArray forged = hostReply("example.test", "forged.test");
            ScriptedServer::SendFrom(stranger, query, forged);
            ScriptedServer::SendFrom(neighbour, query, forged);
            for (const QByteArray& packet :
                 {QByteArray(), query.data(), hostReply("example.test", "forged.test", 4576),
                  hostReply("other.test", "forged.test"), hostReply("example.test", "mail.example.test"),
                  hostReply("example.test", "second.test")})
                server.Send(query, packet);
        };
        QCOMPARE(Asker(server.Names()).Of(u"example.test"_qs), u"mail.example.test"_qs);
    }
};

QTEST_GUILESS_MAIN(TestMailHostLookup)
#include "test_mailhostlookup.moc"

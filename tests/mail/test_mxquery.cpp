// Queries for mail hosts: the packets, broken ones too, and the lookup against a real name server, a silent one and one
// whose replies others try to forge.
#include "Fakes.h"
#include "MailHostLookup.h"
#include "NameServerProcess.h"
#include "SystemWorld.h"
#include "modMXQuery.h"

#include <QNetworkDatagram>

using namespace std::chrono_literals;

namespace {

const QByteArray domain = QByteArrayLiteral("example.org");
constexpr int questionEnd = 29; // header 12, name 13, type and class 4

QByteArray u16(int value) {
    return QByteArray().append(static_cast<char>(value >> 8)).append(static_cast<char>(value & 0xFF));
}
QByteArray labels(const QByteArray& dotted) {
    QByteArray name;
    for (const QByteArray& label : dotted.split('.'))
        name.append(static_cast<char>(label.size())).append(label);
    return name;
}
QByteArray wireName(const QByteArray& dotted) {
    return labels(dotted) + '\0';
}
QByteArray pointer(int offset) {
    return u16(0xC000 | offset);
}
/// An MX record whose length field is `length`, or the length its data really has.
QByteArray record(const QByteArray& owner, const QByteArray& data, int length = -1) {
    return owner + u16(15) + u16(1) + u16(0) + u16(60) + u16(length < 0 ? int(data.size()) : length) + data;
}
QByteArray mx(int preference, const QByteArray& exchange) {
    return record(pointer(12), u16(preference) + exchange);
}
QByteArray reply(int answers, const QByteArray& records, const QByteArray& asked = domain, int identifier = 4575) {
    return u16(identifier) + u16(0x8180) + u16(1) + u16(answers) + u16(0) + u16(0) + wireName(asked) + u16(15) +
           u16(1) + records;
}

/// "preference host" for each, or "none" if the packet is no reply.
QString read(const QByteArray& packet) {
    const auto query = modMXQuery::BuildQuery(QString::fromLatin1(domain));
    const auto parsed = modMXQuery::ParseReply(packet, query.value());
    if (!parsed)
        return QStringLiteral("none");
    QStringList hosts;
    for (const auto& [host, preference] : parsed->hosts)
        hosts.append(QString::number(preference) + u' ' + host);
    return hosts.join(QStringLiteral(", "));
}

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
    /// The outcome; a signal too early or too often is in it too.
    QString Of(const QString& asked) {
        lookup.Begin(asked);
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

} // namespace

class TestMXQuery final : public QObject {
    Q_OBJECT

    NameServerProcess m_server;

  private Q_SLOTS:
    void initTestCase() { QVERIFY(m_server.Start()); }

    void asksForNamesOnly() {
        const QString longest = u"a."_qs.repeated(126) + u'a'; // 255 bytes
        QVERIFY(modMXQuery::BuildQuery(longest));
        const QStringList impossible{QString(),      u"example..de"_qs,          u"example\r\n.de"_qs,
                                     u'a' + longest, QString(64, u'a') + u".de", QString(60, QChar(0xFC)) + u".de"};
        for (const QString& name : impossible)
            QVERIFY2(!modMXQuery::BuildQuery(name), qPrintable(name));
    }

    void reads() {
        const QByteArray mail = mx(10, wireName("mail.example.org"));
        const QString found = u"10 mail.example.org"_qs;
        QCOMPARE(read(reply(1, record(wireName(domain), u16(10) + wireName("mail.example.org")))), found);
        // The second exchange points into the first, which points on to the question.
        QCOMPARE(read(reply(2, mx(10, labels("mail") + pointer(12)) + mx(5, labels("in") + pointer(questionEnd + 14)))),
                 QString(u"5 in.mail.example.org, " + found));
        // Characters that no host has.
        for (const QByteArray& name : {wireName("a\r\nQUIT.org"), wireName("a b.org"), wireName("\xFC.org")})
            QCOMPARE(read(reply(2, mx(1, name) + mail)), found);
        QCOMPARE(read(reply(65535, mail)), found); // more answers than there are
        for (const QByteArray& broken : {record(pointer(12), u16(1) + wireName("b.org"), 4000),
                                         record(pointer(12), "\x01"), mx(1, QByteArray("\x3f").append('b')),
                                         mx(1, QByteArray("\x41").append('b') + wireName("org")), mx(1, "\xC0")})
            QCOMPARE(read(reply(2, mail + broken)), found);
        const QByteArray tooLong = QByteArray('\x3f' + QByteArray(63, 'a')).repeated(4) + '\0';
        const QByteArray circle = labels("a") + pointer(questionEnd + 14);
        for (const QByteArray& exchange : {pointer(questionEnd + 16), circle, tooLong})
            QCOMPARE(read(reply(2, mx(1, exchange) + mail)), QString());
    }

    void readsWhatIsLeftOfATruncatedReply() {
        const QByteArray first = mx(10, labels("mail") + pointer(12));
        const QByteArray whole = reply(2, first + mx(5, labels("b") + pointer(12)));
        for (qsizetype length = 0; length < whole.size(); ++length) {
            const QString expected = length < questionEnd                  ? QStringLiteral("none")
                                     : length < questionEnd + first.size() ? QString()
                                                                           : QStringLiteral("10 mail.example.org");
            // A copy of just that size, so that reading a byte too far is found.
            QCOMPARE(read(QByteArray(whole.constData(), length)), expected);
        }
    }

    void asksANameServer() {
        const auto hostOf = [this](const QString& asked, const QString& localDomain = {}) {
            return Asker(nameServiceAt(m_server.port, localDomain)).Of(asked);
        };
        QCOMPARE(hostOf(u"EXAMPLE.TEST"_qs), u"mail.example.test"_qs); // the better one of two
        QCOMPARE(hostOf(u"www.example.test"_qs), QString());           // takes no mail
        QCOMPARE(hostOf(u"a.pc.inner.test"_qs, u"Inner.Test"_qs), u"mail.inner.test"_qs);
        QCOMPARE(hostOf(u"example.elsewhere"_qs, u"inner.test"_qs), QString());
        QCOMPARE(Asker({}).Of(u"example.test"_qs), u"No DNS entries found, MX Query cannot contine."_qs);
        QCOMPARE(hostOf(u"a..example.test"_qs), u"No Valid Domain Specified"_qs);
    }

    void givesASilentServerUp() {
        QUdpSocket server;
        QVERIFY(server.bind(QHostAddress::LocalHost));
        QCOMPARE(Asker(nameServiceAt(server.localPort()), 1ms).Of(u"example.org"_qs), u"Problem receiving MX query"_qs);
        QTRY_VERIFY(server.hasPendingDatagrams());
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
        QUdpSocket server;
        QUdpSocket stranger;
        QUdpSocket neighbour;
        QVERIFY(server.bind(QHostAddress::LocalHost) && stranger.bind(QHostAddress::LocalHost));
        // Wine keeps the port of one address from the others; then he has none, and sends nothing.
        QVERIFY(neighbour.bind(QHostAddress(u"127.0.0.2"_qs), server.localPort()) || SystemWorld::IsEmulated());
        connect(&server, &QUdpSocket::readyRead, &server, [&] {
            const QNetworkDatagram query = server.receiveDatagram();
            const auto send = [&query](QUdpSocket& from, const QByteArray& packet) {
                from.writeDatagram(packet, query.senderAddress(), static_cast<quint16>(query.senderPort()));
            };
            const QByteArray forged = mx(10, wireName("forged.test"));
            send(stranger, reply(1, forged));
            send(neighbour, reply(1, forged));
            for (const QByteArray& packet :
                 {QByteArray(), query.data(), reply(1, forged, domain, 4576), reply(1, forged, "other.test"),
                  reply(1, mx(10, wireName("mail.example.org"))), reply(1, mx(10, wireName("second.test")))})
                send(server, packet);
        });
        QCOMPARE(Asker(nameServiceAt(server.localPort())).Of(u"example.org"_qs), u"mail.example.org"_qs);
    }
};

QTEST_GUILESS_MAIN(TestMXQuery)
#include "test_mxquery.moc"

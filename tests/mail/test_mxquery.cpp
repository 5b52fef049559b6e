#include "MXPackets.h"
#include "modMXQuery.h"

#include <QTest>

using namespace MXPackets;

namespace {

const QByteArray domain = QByteArrayLiteral("example.org");
constexpr int questionEnd = 29; // header 12, name 13, type and class 4

QByteArray reply(int answers, const QByteArray& records) {
    return Header(answers) + Question(domain) + records;
}

/// "preference host" for each, or "none" where the packet is no reply.
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

} // namespace

class TestMXQuery final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void asksForNamesOnly() {
        const QString longest = u"a."_qs.repeated(126) + u'a'; // 255 bytes
        QVERIFY(modMXQuery::BuildQuery(longest));
        const QStringList impossible{QString(),
                                     u"example..de"_qs,
                                     u"example\r\n.de"_qs,
                                     u'a' + longest,
                                     QString(64, u'a') + u".de"_qs,
                                     QString(60, QChar(0xFC)) + u".de"_qs};
        for (const QString& name : impossible)
            QVERIFY2(!modMXQuery::BuildQuery(name), qPrintable(name));
    }

    void reads() {
        const QByteArray mail = MX(10, Name("mail.example.org"));
        const QString found = u"10 mail.example.org"_qs;
        QCOMPARE(read(reply(1, Record(Name(domain), 15, Short(10) + Name("mail.example.org")))), found);
        // The second exchange points into the first, which points on to the question.
        QCOMPARE(read(reply(2, MX(10, Labels("mail") + Pointer(12)) + MX(5, Labels("in") + Pointer(questionEnd + 14)))),
                 QString(u"5 in.mail.example.org, " + found));
        // Characters that no host has.
        for (const QByteArray& name : {Name("a\r\nQUIT.org"), Name("a b.org"), Name("\xFC.org")})
            QCOMPARE(read(reply(2, MX(1, name) + mail)), found);
        QCOMPARE(read(reply(65535, mail)), found); // more answers told than there are
        for (const QByteArray& broken : {Record(Pointer(12), 15, Short(1) + Name("b.org"), 4000),
                                         Record(Pointer(12), 15, "\x01"), MX(1, QByteArray("\x3f").append('b')),
                                         MX(1, QByteArray("\x41").append('b') + Name("org")), MX(1, "\xC0")})
            QCOMPARE(read(reply(2, mail + broken)), found);
        const QByteArray tooLong = QByteArray('\x3f' + QByteArray(63, 'a')).repeated(4) + '\0';
        const QByteArray circle = Labels("a") + Pointer(questionEnd + 14);
        for (const QByteArray& exchange : {Pointer(questionEnd + 16), circle, tooLong})
            QCOMPARE(read(reply(2, MX(1, exchange) + mail)), QString());
    }

    void readsWhatIsLeftOfATruncatedReply() {
        const QByteArray first = MX(10, Labels("mail") + Pointer(12));
        const QByteArray whole = reply(2, first + MX(5, Labels("b") + Pointer(12)));
        for (qsizetype length = 0; length < whole.size(); ++length) {
            const QString expected = length < questionEnd                  ? QStringLiteral("none")
                                     : length < questionEnd + first.size() ? QString()
                                                                           : QStringLiteral("10 mail.example.org");
            // A copy of just that size, so that a byte read behind it is found out.
            QCOMPARE(read(QByteArray(whole.constData(), length)), expected);
        }
    }
};

QTEST_GUILESS_MAIN(TestMXQuery)
#include "test_mxquery.moc"

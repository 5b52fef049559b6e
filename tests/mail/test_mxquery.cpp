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

QString repeated(const QString& label, int times) {
    return QStringList(QList<QString>(times, label)).join(u'.');
}

} // namespace

class TestMXQuery final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void asks() {
        const auto query = modMXQuery::BuildQuery(QStringLiteral("mail.example.de"));
        QCOMPARE(query.value_or(QByteArray()).toHex(' '),
                 QByteArray("11 df 01 00 00 01 00 00 00 00 00 00 04 6d 61 69 6c 07 65 78 61 6d 70 6c 65 02 64 65 00 "
                            "00 0f 00 01"));
        const auto umlaut = modMXQuery::BuildQuery(QString::fromUtf8("b\xC3\xBC"
                                                                     "cher.de"));
        QVERIFY(umlaut.value_or(QByteArray()).contains("\x0dxn--bcher-kva\x02"));
    }

    void asksForNamesOnly_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("possible");
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("dot in front") << QStringLiteral(".example.de") << false;
        QTest::newRow("two dots") << QStringLiteral("example..de") << false;
        QTest::newRow("dot at the end") << QStringLiteral("example.de.") << false;
        QTest::newRow("blank") << QStringLiteral("exam ple.de") << false;
        QTest::newRow("line end") << QStringLiteral("example\r\n.de") << false;
        QTest::newRow("label of 63") << QString(63, u'a') + QStringLiteral(".de") << true;
        QTest::newRow("label of 64") << QString(64, u'a') + QStringLiteral(".de") << false;
        QTest::newRow("255 in all") << repeated(QStringLiteral("a"), 127) << true;
        QTest::newRow("256 in all") << QStringLiteral("a") + repeated(QStringLiteral("a"), 127) << false;
        QTest::newRow("no name in any script") << QString(QChar(0x202E)) + QStringLiteral(".example.de") << false;
        QTest::newRow("long in another script") << QString(60, QChar(0xFC)) + QStringLiteral(".de") << false;
    }
    void asksForNamesOnly() {
        QFETCH(QString, name);
        QTEST(modMXQuery::BuildQuery(name).has_value(), "possible");
    }

    void reads_data() {
        QTest::addColumn<QByteArray>("packet");
        QTest::addColumn<QString>("hosts");
        const auto row = [](const char* name, const QByteArray& packet, const char* hosts) {
            QTest::newRow(name) << packet << QString::fromLatin1(hosts);
        };
        const QByteArray mail = MX(10, Name("mail.example.org"));
        row("whole names", reply(1, Record(Name(domain), 15, Short(10) + Name("mail.example.org"))),
            "10 mail.example.org");
        row("pointers", reply(1, MX(10, Labels("mail") + Pointer(12))), "10 mail.example.org");
        // The second exchange points into the first, which points on to the question.
        row("pointer to a pointer",
            reply(2, MX(10, Labels("mail") + Pointer(12)) + MX(5, Labels("in") + Pointer(questionEnd + 14))),
            "5 in.mail.example.org, 10 mail.example.org");
        row("sorted, equal ones in their order",
            reply(5, MX(20, Name("a.org")) + MX(10, Name("z.org")) + MX(10, Name("b.org")) + MX(65535, Name("c.org")) +
                         MX(10, Name("a.org"))),
            "10 z.org, 10 b.org, 10 a.org, 20 a.org, 65535 c.org");
        row("other records between",
            reply(3, Record(Pointer(12), 5, Name("alias.org")) + Record(Pointer(12), 1, "\x7f\x01\x01\x01") + mail),
            "10 mail.example.org");
        row("question in capitals", Header(1) + Question("EXAMPLE.ORG") + mail, "10 mail.example.org");
        row("no answers", reply(0, {}), "");
        row("takes no mail", reply(1, MX(0, QByteArray(1, '\0'))), "");
        row("control characters", reply(2, MX(1, Name("a\r\nQUIT.org")) + mail), "10 mail.example.org");
        row("blank, dot and byte above ASCII in a label",
            reply(4, MX(1, Name("a b.org")) +
                         MX(2, "\x03"
                               "a.b" +
                                   Name("org")) +
                         MX(3, Name("\xFC.org")) + mail),
            "10 mail.example.org");

        row("wrong identifier", Header(1, 4576) + Question(domain) + mail, "none");
        row("a question", Header(1, 4575, 0x0100) + Question(domain) + mail, "none");
        row("no question in it", Header(1, 4575, 0x8180, 0) + mail, "none");
        row("two questions", Header(1, 4575, 0x8180, 2) + Question(domain) + Question(domain) + mail, "none");
        row("other domain", Header(1) + Question("example.com") + mail, "none");
        row("other type", Header(1) + Question(domain, 1) + mail, "none");
        row("empty", {}, "none");
        row("half a header", Header(1).left(7), "none");
        row("header only", Header(1), "none");

        row("more answers told than there are", reply(65535, mail), "10 mail.example.org");
        row("fewer answers told than there are", reply(1, mail + mail), "10 mail.example.org");
        row("data length beyond the end", reply(2, mail + Record(Pointer(12), 15, Short(1) + Name("b.org"), 4000)),
            "10 mail.example.org");
        row("data length shorter than the name", reply(2, mail + Record(Pointer(12), 15, Short(1) + Name("b.org"), 4)),
            "10 mail.example.org");
        row("data length without room for a preference", reply(2, mail + Record(Pointer(12), 15, "\x01")),
            "10 mail.example.org");
        row("label beyond the end",
            reply(2, mail + MX(1, "\x3f"
                                  "b")),
            "10 mail.example.org");
        row("label of a reserved kind",
            reply(2, mail + MX(1, "\x41"
                                  "b" +
                                      Name("org"))),
            "10 mail.example.org");
        row("half a pointer", reply(2, mail + MX(1, "\xC0")), "10 mail.example.org");
        row("pointer forward", reply(2, MX(1, Pointer(questionEnd + 16)) + mail), "");
        row("pointer to itself", reply(1, MX(1, Pointer(questionEnd + 14))), "");
        row("circle with a label in it", reply(1, MX(1, Labels("a") + Pointer(questionEnd + 14))), "");
        row("pointer into the header", reply(1, MX(1, Pointer(4))), "");
        const QByteArray label = '\x3f' + QByteArray(63, 'a');
        row("name of more than 255", reply(1, MX(1, label + label + label + label + '\0')), "");
        // 20 pieces, each one a label and a pointer to the piece before: a name that only grows by pointers.
        QByteArray pieces = Record(Pointer(12), 16, Labels("a123456789b123") + Pointer(12));
        for (int piece = 1; piece < 20; ++piece)
            pieces += Record(Pointer(12), 16, Labels("a123456789b123") + Pointer(questionEnd + 12 + (piece - 1) * 29));
        row("name grown too long by pointers", reply(21, pieces + MX(1, Pointer(questionEnd + 12 + 19 * 29))), "");
        row("name grown by pointers", reply(21, pieces + MX(1, Pointer(questionEnd + 12))),
            "1 a123456789b123.example.org");
    }
    void reads() {
        QFETCH(QByteArray, packet);
        QTEST(read(packet), "hosts");
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
    void keepsTheOrderOfManyEqualOnes() {
        constexpr int hosts = 60; // a short list stays in order with any way of sorting
        QByteArray records;
        QStringList expected;
        for (int host = 0; host < hosts; ++host) {
            const QByteArray name = QByteArray::number(host) + ".org";
            records += MX(host < hosts / 2 ? 20 : 10, Name(name));
            expected.append(QString::fromLatin1((host < hosts / 2 ? "20 " : "10 ") + name));
        }
        expected = expected.mid(hosts / 2) + expected.mid(0, hosts / 2);
        QCOMPARE(read(reply(hosts, records)), expected.join(QStringLiteral(", ")));
    }
    void countsAnswersOfEveryKind() {
        const QByteArray query = modMXQuery::BuildQuery(QString::fromLatin1(domain)).value();
        const auto alias = modMXQuery::ParseReply(reply(1, Record(Pointer(12), 5, Name("alias.org"))), query);
        QVERIFY(alias.has_value());
        QCOMPARE(alias->answers, quint16(1));
        QVERIFY(alias->hosts.empty());
    }
};

QTEST_GUILESS_MAIN(TestMXQuery)
#include "test_mxquery.moc"

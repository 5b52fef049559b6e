#include "LineTransparency.h"
#include "modBase64.h"
#include "modContentType.h"
#include "modHeaderWord.h"
#include "modMailDate.h"

#include <QTest>

namespace {
QByteArray qWord(const QByteArray& text) {
    return QByteArray("=?ISO-8859-1?Q?").append(text).append("?=");
}

QByteArray bWord(const QByteArray& text) {
    return QByteArray("=?ISO-8859-1?B?").append(text.toBase64()).append("?=");
}

constexpr const char* joint = "\r\n\t";
} // namespace

class TestMailEncodings final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void base64() {
        using modBase64::DecodeBase64String;
        QCOMPARE(DecodeBase64String("TWE"), QByteArray("Ma"));
        QCOMPARE(DecodeBase64String("TWFuT"), QByteArray("Man"));
        QCOMPARE(DecodeBase64String(" T*W\r\nF\xE4-u"), QByteArray("Man"));
        QCOMPARE(DecodeBase64String("TQ==TWFu"), QByteArray("M"));
        QCOMPARE(DecodeBase64String("+/+/09az").toHex(), QByteArray("fbffbfd3d6b3"));
    }

    void headerWord() {
        using modHeaderWord::Encode;
        QCOMPARE(Encode({}, false), QByteArray());
        QCOMPARE(Encode(u"a\"b\\c"_qs, true), QByteArray("\"a\\\"b\\\\c\""));
        QCOMPARE(Encode(u"~\x7F"_qs, false), bWord("~\x7F"));
        QCOMPARE(Encode(u"a\r\nb\rc\nd"_qs + QChar(0) + u'e', false), QByteArray("a  b c d e"));
        QCOMPARE(Encode(u"a\x1B\tb"_qs, false), QByteArray("a \tb"));
        QCOMPARE(Encode(u"a€\U0001F600b\xD800"_qs, false), QByteArray("a??b?"));
        QCOMPARE(Encode(u"Müllers"_qs, true), qWord("M=FCllers")); // words are never quoted
        QCOMPARE(Encode(u"ä\r\n=?_\t.<>"_qs + QString(24, u'z'), false),
                 qWord("=E4__=3D=3F=5F=09.<>" + QByteArray(24, 'z')));
        // Some readers split addresses before they decode words.
        QCOMPARE(Encode(u"ä <x@y.zz>, abcdefghijk"_qs, true), bWord("\xE4 <x@y.zz>, abcdefghijk"));
        // No code is cut, and no line too long.
        QCOMPARE(Encode(QString(52, u'c') + u'ä', false), qWord(QByteArray(52, 'c')) + joint + qWord("=E4"));
        QCOMPARE(Encode(QString(43, u'ä'), false), bWord(QByteArray(42, '\xE4')) + joint + bWord("\xE4"));
        QCOMPARE(Encode(QString(800, u'c') + u"  "_qs + QString(200, u'd'), false),
                 QByteArray(800, 'c') + " \r\n " + QByteArray(200, 'd'));
    }

    void longHeaderWord() {
        const QStringList texts{QString(5000, u'c'), QString(5000, u' '), u"c"_qs + QString(5000, u' '),
                                u"word and word "_qs.repeated(400), u"\"\\ "_qs.repeated(2000)};
        for (const QString& text : texts)
            for (const bool quoted : {false, true})
                for (const QByteArray& line : modHeaderWord::Encode(text, quoted).split('\n')) {
                    QVERIFY(line.size() < 998);
                    QVERIFY2(!line.trimmed().isEmpty(), "a line of blanks ends the header for some readers");
                }
    }

    void date() {
        QLocale::setDefault(QLocale(QLocale::German));
        const QMap<QString, QByteArray> dates{
            {u"2003-01-05T14:07:09-00:30"_qs, "Sun, 5 Jan 2003 14:07:09 +0030 000092FA.0381AC25"},
            {u"2024-12-28T00:00:00-03:30"_qs, "Sat, 28 Dec 2024 00:00:00 -0330 0000B256.00000000"},
            {u"1999-08-31T23:59:59+12:45"_qs, "Tue, 31 Aug 1999 23:59:59 +1245 00008E33.05F5DC7B"}};
        for (auto date = dates.begin(); date != dates.end(); ++date) {
            const QDateTime when = QDateTime::fromString(date.key(), Qt::ISODate);
            const QByteArray boundary = modMailDate::Boundary(when);
            QVERIFY(boundary.startsWith("----_=_NextPart_000_"));
            QCOMPARE(modMailDate::DateText(when) + ' ' + boundary.mid(20), date.value());
        }
    }

    void contentType() {
        const QByteArray unknown("application/octet-stream");
        for (const char* name : {"a.unheardof", "txt", "/folder.txt/file", "README", "a.", ""})
            QCOMPARE(modContentType::GetContentType(QString::fromLatin1(name)), unknown);
        QCOMPARE(modContentType::GetContentType(u"/tmp/A.HTML"_qs), QByteArray("text/html"));
        QCOMPARE(modContentType::GetContentType(u"a.b.zip"_qs), QByteArray("application/zip"));
    }

    void transparency_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("sent");
        const auto row = [](const char* name, const QByteArray& text, const QByteArray& sent) {
            QTest::newRow(name) << text << sent;
        };
        const QByteArray full(998, 'a');
        row("line ends", "a\rb\nc\n\rd\r\r\ne\n\n", "a\r\nb\r\nc\r\n\r\nd\r\n\r\ne\r\n\r\n");
        row("dots", ".a\r\n.\r\n..\nb.\r.c\r\n", "..a\r\n..\r\n...\r\nb.\r\n..c\r\n");
        row("998", full + "\r\nb", full + "\r\nb");
        row("999", full + 'a', full + "\r\na");
        row("broken before a dot", full + ".\n", full + "\r\n..\r\n");
        row("a doubled dot counts once", QByteArray(999, '.'), QByteArray(999, '.').append("\r\n.."));
    }
    void transparency() {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, sent);
        for (qsizetype cut = 0; cut <= text.size(); ++cut) {
            LineTransparency filter;
            const QByteArray begin = filter.Pass(text.left(cut));
            QCOMPARE(begin + filter.Pass(text.mid(cut)), sent);
        }
    }
};

QTEST_APPLESS_MAIN(TestMailEncodings)
#include "test_mailencodings.moc"

#include "LineTransparency.h"
#include "modBase64.h"
#include "modContentType.h"
#include "modHeaderWord.h"
#include "modMailDate.h"
#include "modUuEncode.h"

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
    void base64_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("three") << QByteArray("TWFu") << QByteArray("Man");
        QTest::newRow("two") << QByteArray("TWE=") << QByteArray("Ma");
        QTest::newRow("one") << QByteArray("TQ==") << QByteArray("M");
        QTest::newRow("unpadded") << QByteArray("TWE") << QByteArray("Ma");
        QTest::newRow("a lone digit") << QByteArray("TWFuT") << QByteArray("Man");
        QTest::newRow("strangers skipped") << QByteArray(" T*W\r\nF\xE4-u") << QByteArray("Man");
        QTest::newRow("ends at =") << QByteArray("TQ==TWFu") << QByteArray("M");
        QTest::newRow("every digit class") << QByteArray("+/+/09az") << QByteArray::fromHex("fbffbfd3d6b3");
        QTest::newRow("nothing") << QByteArray() << QByteArray();
    }
    void base64() {
        QFETCH(QByteArray, text);
        QTEST(modBase64::DecodeBase64String(text), "bytes");
    }

    void base64Lines() {
        QByteArray bytes;
        for (int i = 0; i < 300; ++i) {
            const QByteArray code = modBase64::Encode(bytes);
            QCOMPARE(modBase64::DecodeBase64String(code), bytes);
            const QList<QByteArray> lines = code.split('\n');
            for (qsizetype line = 0; line + 1 < lines.size(); ++line)
                QCOMPARE(lines[line].size(), 77);
            QVERIFY(lines.last().size() <= 76 && !lines.last().endsWith('\r'));
            bytes.append(static_cast<char>(i * 7));
        }
    }

    void uuEncode_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("lines");
        QTest::newRow("nothing") << QByteArray() << QByteArray();
        QTest::newRow("three") << QByteArray("Cat") << QByteArray("#0V%T\r\n");
        QTest::newRow("one, filled up") << QByteArray("C") << QByteArray("!0P``\r\n");
        QTest::newRow("zeros") << QByteArray(3, '\0') << QByteArray("#````\r\n");
        QTest::newRow("45 and 1") << QByteArray(46, '\0') << QByteArray("M" + QByteArray(60, '`') + "\r\n!````\r\n");
    }
    void uuEncode() {
        QFETCH(QByteArray, bytes);
        QTEST(modUuEncode::Encode(bytes), "lines");
    }

    void headerWord_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("quoted");
        QTest::addColumn<QByteArray>("word");
        const QString umlaut(QChar(0xE4));
        const auto row = [](const char* name, const QString& text, bool quoted, const QByteArray& word) {
            QTest::newRow(name) << text << quoted << word;
        };
        row("empty", {}, false, "");
        row("plain", QStringLiteral("a_b = c?"), false, "a_b = c?");
        row("plain, quoted", QStringLiteral("Doe, John"), true, "\"Doe, John\"");
        row("escapes", QStringLiteral("a\"b\\c"), true, "\"a\\\"b\\\\c\"");
        row("126 is plain", QStringLiteral("~"), false, "~");
        row("127 is not", QStringLiteral("\x7F"), false, qWord("=7F"));
        row("line ends, one blank each", QStringLiteral("a\r\nb\rc\nd") + QChar(0) + u'e', false, "a  b c d e");
        row("other control characters", QStringLiteral("a\x1B\tb"), false, "a \tb");
        row("outside", QStringLiteral(u"a€\U0001F600b\xD800"), false, "a??b?");
        row("B is shorter", QStringLiteral(u"Grüße"), false,
            bWord("Gr\xFC\xDF"
                  "e"));
        row("B on equal length", QStringLiteral(u"Müller"), false, bWord("M\xFCller"));
        row("Q is shorter", QStringLiteral(u"Müllers"), false, qWord("M=FCllers"));
        row("never quoted", QStringLiteral(u"Müllers"), true, qWord("M=FCllers"));
        row("blanks and signs in Q", QStringLiteral(u"ä =?_\t.<>") + QString(24, u'z'), false,
            qWord("=E4_=3D=3F=5F=09.<>" + QByteArray(24, 'z')));
        row("line ends in Q", QStringLiteral(u"ä\r\nabcdefgh"), false, qWord("=E4__abcdefgh"));
        row("delimiters are hidden in phrases", QStringLiteral(u"ä <x@y.zz>, abcdefghijk"), true,
            bWord("\xE4 <x@y.zz>, abcdefghijk"));
        row("54 fit into a Q word", umlaut + QString(51, u'c'), false, qWord("=E4" + QByteArray(51, 'c')));
        row("55 do not", umlaut + QString(52, u'c'), false, qWord("=E4" + QByteArray(51, 'c')) + joint + qWord("c"));
        row("no code is cut", QString(52, u'c') + umlaut, false, qWord(QByteArray(52, 'c')) + joint + qWord("=E4"));
        row("42 fill a B word", QString(42, QChar(0xE4)), false, bWord(QByteArray(42, '\xE4')));
        row("43 do not", QString(43, QChar(0xE4)), false, bWord(QByteArray(42, '\xE4')) + joint + bWord("\xE4"));
        // The Q form of this one is a character shorter than B until it is cut into two words.
        row("joints count", QString(7, QChar(0xE4)) + QString(34, u'c'), false,
            bWord(QByteArray(7, '\xE4') + QByteArray(34, 'c')));
        row("900 need no fold", QString(900, u'c'), false, QByteArray(900, 'c'));
        row("folded before a blank", QString(800, u'c') + QStringLiteral("  ") + QString(200, u'd'), false,
            QByteArray(800, 'c') + " \r\n " + QByteArray(200, 'd'));
    }
    void headerWord() {
        QFETCH(QString, text);
        QFETCH(bool, quoted);
        QTEST(modHeaderWord::Encode(text, quoted), "word");
    }

    void longHeaderWord_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("no blank") << QString(5000, u'c');
        QTest::newRow("blanks only") << QString(5000, u' ');
        QTest::newRow("blanks at the end") << QStringLiteral("c") + QString(5000, u' ');
        QTest::newRow("words") << QStringLiteral("word and word ").repeated(400);
        QTest::newRow("quotes") << QStringLiteral("\"\\ ").repeated(2000);
    }
    void longHeaderWord() {
        QFETCH(QString, text);
        for (const bool quoted : {false, true})
            for (const QByteArray& line : modHeaderWord::Encode(text, quoted).split('\n')) {
                QVERIFY(line.size() < 998);
                QVERIFY2(!line.trimmed().isEmpty(), "a line of blanks ends the header for some readers");
            }
    }

    void date_data() {
        QTest::addColumn<QDateTime>("when");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("boundary");
        const auto at = [](int hoursAhead, const QDate& day, const QTime& time) {
            return QDateTime(day, time, Qt::OffsetFromUTC, hoursAhead * 3600);
        };
        QTest::newRow("winter") << at(1, {2003, 1, 5}, {14, 7, 9}) << QByteArray("Sun, 5 Jan 2003 14:07:09 +0100")
                                << QByteArray("----_=_NextPart_000_000092FA.0381AC25");
        QTest::newRow("Saturday") << at(-5, {2024, 12, 28}, {0, 0, 0}) << QByteArray("Sat, 28 Dec 2024 00:00:00 -0500")
                                  << QByteArray("----_=_NextPart_000_0000B256.00000000");
        QTest::newRow("end of a day") << at(0, {1999, 8, 31}, {23, 59, 59})
                                      << QByteArray("Tue, 31 Aug 1999 23:59:59 +0000")
                                      << QByteArray("----_=_NextPart_000_00008E33.05F5DC7B");
    }
    void date() {
        QFETCH(QDateTime, when);
        QLocale::setDefault(QLocale(QLocale::German));
        QTEST(modMailDate::DateText(when), "text");
        QTEST(modMailDate::Boundary(when), "boundary");
    }

    void zone_data() {
        QTest::addColumn<int>("minutes");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("UTC") << 0 << QByteArray("+0000");
        QTest::newRow("daylight") << 120 << QByteArray("+0200");
        QTest::newRow("west") << -300 << QByteArray("-0500");
        QTest::newRow("west, part of an hour") << -210 << QByteArray("-0330");
        QTest::newRow("east, part of an hour") << 765 << QByteArray("+1245");
        QTest::newRow("less than an hour west loses its sign") << -30 << QByteArray("+0030");
    }
    void zone() {
        QFETCH(int, minutes);
        QTEST(modMailDate::ZoneText(minutes * 60), "text");
    }

    void contentType_data() {
        QTest::addColumn<QByteArray>("type");
        QTest::newRow("a.txt") << QByteArray("text/plain");
        QTest::newRow("/tmp/A.HTML") << QByteArray("text/html");
        QTest::newRow("a.b.zip") << QByteArray("application/zip");
        QTest::newRow("a.unheardof") << QByteArray("application/octet-stream");
        QTest::newRow("txt") << QByteArray("application/octet-stream");
        QTest::newRow("/folder.txt/file") << QByteArray("application/octet-stream");
        QTest::newRow("README") << QByteArray("application/octet-stream");
        QTest::newRow("a.") << QByteArray("application/octet-stream");
        QTest::newRow("") << QByteArray("application/octet-stream");
    }
    void contentType() { QTEST(modContentType::GetContentType(QString::fromLatin1(QTest::currentDataTag())), "type"); }

    void transparency_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("sent");
        QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << QByteArray("a\r\nb\r\n");
        QTest::newRow("lone ones") << QByteArray("a\rb\nc\n\rd\r\r\ne\n\n")
                                   << QByteArray("a\r\nb\r\nc\r\n\r\nd\r\n\r\ne\r\n\r\n");
        QTest::newRow("dots") << QByteArray(".a\r\n.\r\n..\nb.\r.c\r\n")
                              << QByteArray("..a\r\n..\r\n...\r\nb.\r\n..c\r\n");
        QTest::newRow("998") << QByteArray(998, 'a').append("\r\nb") << QByteArray(998, 'a').append("\r\nb");
        QTest::newRow("999") << QByteArray(999, 'a') << QByteArray(998, 'a').append("\r\na");
        QTest::newRow("broken before a dot")
            << QByteArray(998, 'a').append(".\n") << QByteArray(998, 'a').append("\r\n..\r\n");
        QTest::newRow("a doubled dot counts once") << QByteArray(999, '.') << QByteArray(999, '.').append("\r\n..");
    }
    void transparency() {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, sent);
        for (qsizetype cut = 0; cut <= text.size(); ++cut) {
            LineTransparency filter;
            const QByteArray begin = filter.Pass(text.left(cut));
            QCOMPARE(begin + filter.Pass(text.mid(cut)), sent);
        }
        LineTransparency filter;
        QByteArray bytewise;
        for (const char letter : text)
            bytewise += filter.Pass(QByteArray(1, letter));
        QCOMPARE(bytewise, sent);
    }
};

QTEST_APPLESS_MAIN(TestMailEncodings)
#include "test_mailencodings.moc"

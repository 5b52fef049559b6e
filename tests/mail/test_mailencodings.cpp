// What reaches the wire as text, and what is taken for an address.
#include "MessageStream.h"
#include "modMailEncoding.h"
#include "modMailHeader.h"
#include "modValidEMail.h"

#include <QTest>

class TestMailEncodings final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void longHeaderWord() {
        const QStringList texts{QString(5000, u'c'), QString(5000, u' '), u"c"_qs + QString(5000, u' '),
                                u"word and word "_qs.repeated(400), u"\"\\ "_qs.repeated(2000)};
        for (const QString& text : texts)
            for (const bool quoted : {false, true})
                for (const QByteArray& line : modMailEncoding::HeaderWord(text, quoted).split('\n')) {
                    QVERIFY(line.size() < 998);
                    QVERIFY2(!line.trimmed().isEmpty(), "a line of blanks ends the header for some readers");
                }
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

    void base64FromServers() {
        QCOMPARE(modMailEncoding::DecodeBase64String(" UGFz-c3dv\r\ncmQ6"), "Password:");
        QCOMPARE(modMailEncoding::DecodeBase64String("VXNlcm5hbWU6=UGFzc3dvcmQ6"), "Username:");
    }

    void datesAreEnglish() {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        const QDateTime when(QDate(2023, 10, 4), QTime(1, 2, 3), Qt::OffsetFromUTC, -12'600);
        const QByteArray head = modMailHeader::OfMessage({}, when, {}, false);
        QLocale::setDefault(before);
        QVERIFY2(head.contains("\r\nDate: Wed, 4 Oct 2023 01:02:03 -0330\r\n"), head);
    }

    void addresses() {
        for (const char* valid : {"a.b-c_d~e@mail.EXAMPLE.De", "a@example.com", "  a@example.org ", "a@192.168.0.255"})
            QVERIFY2(modValidEMail::IsValidEmailAddress(QString::fromLatin1(valid)), valid);
        for (const char* invalid : {"", "@example.de", "example.de", "a@b@example.de", "a@", "a@example.o",
                                    "a b@example.de", "a@192.168.0.256", "a@99999999999999999999.1.1.1", "a@1.2.3"})
            QVERIFY2(!modValidEMail::IsValidEmailAddress(QString::fromLatin1(invalid)), invalid);
        const QString good = u"ab@example.de"_qs;
        for (const QChar illegal : u"!#$%^&*()=+{}[]|\\;:'/?>,<\"\t\r\n\0"_qs)
            for (const qsizetype place : {qsizetype(0), qsizetype(5), good.size()})
                QVERIFY2(!modValidEMail::IsValidEmailAddress(QString(good).insert(place, illegal)),
                         qPrintable(QString(illegal)));
    }
};

QTEST_APPLESS_MAIN(TestMailEncodings)
#include "test_mailencodings.moc"

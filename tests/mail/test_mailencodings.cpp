#include "MessageStream.h"
#include "modMailEncoding.h"

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
};

QTEST_APPLESS_MAIN(TestMailEncodings)
#include "test_mailencodings.moc"

// The cutting of replies: whatever the pieces, the same replies come out.
#include "ReplyReader.h"

#include <QTest>

namespace {

QList<QByteArray> repliesOf(const QByteArray& bytes, qsizetype piece) {
    ReplyReader reader;
    QList<QByteArray> replies;
    for (qsizetype at = 0; at < bytes.size(); at += piece) {
        reader.Feed(bytes.mid(at, piece));
        while (const auto reply = reader.Next())
            replies += reply->code + "|" + reply->text;
    }
    if (reader.IsOverrun())
        replies += "overrun";
    return replies;
}

} // namespace

class TestReplyReader final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void cuts_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QList<QByteArray>>("replies");
        using List = QList<QByteArray>;
        QTest::newRow("one") << QByteArray("220 hello\r\n") << List{"220|220 hello"};
        QTest::newRow("two at once") << QByteArray("250 a\r\n354 b\r\n") << List{"250|250 a", "354|354 b"};
        QTest::newRow("several lines") << QByteArray("250-a\r\n250-AUTH LOGIN\r\n250 c\r\n221 d\r\n")
                                       << List{"250|250-a\r\n250-AUTH LOGIN\r\n250 c", "221|221 d"};
        QTest::newRow("bare line feed") << QByteArray("250 a\n250 b\n") << List{"250|250 a", "250|250 b"};
        QTest::newRow("POP3") << QByteArray("+OK-ready\r\n-ERR-no\r\n") << List{"+OK|+OK-ready", "-ER|-ERR-no"};
        QTest::newRow("code alone, lower case") << QByteArray("250\r\n\r\nabc\r\n") << List{"250|250", "|", "ABC|abc"};
        QTest::newRow("not complete") << QByteArray("250-a\r\n250 b") << List{};
        QTest::newRow("endless line") << QByteArray(10'000, '2') << List{"overrun"};
        QTest::newRow("endless reply")
            << QByteArray("250-xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\r\n").repeated(3'000) << List{"overrun"};
    }
    void cuts() {
        QFETCH(QByteArray, bytes);
        for (const qsizetype piece : {qsizetype{1}, qsizetype{3}, qsizetype{1024}, bytes.size()})
            QTEST(repliesOf(bytes, piece), "replies");
    }
};

QTEST_APPLESS_MAIN(TestReplyReader)
#include "test_replyreader.moc"

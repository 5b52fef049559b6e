// The cutting of replies: whatever the pieces, the same replies come out.
#include "MailWire.h"

#include <QTest>

namespace {

/// "code: text" of each, the same whatever the pieces it comes in.
QByteArrayList repliesOf(const QByteArray& bytes) {
    QByteArrayList first;
    for (const qsizetype piece : {qsizetype{1}, qsizetype{3}, qsizetype{1024}, bytes.size()}) {
        ReplyReader reader;
        QByteArrayList replies;
        for (qsizetype at = 0; at < bytes.size(); at += piece) {
            reader.Feed(bytes.mid(at, piece));
            while (const auto reply = reader.Next())
                replies += reply->code + ": " + reply->text;
        }
        if (reader.IsOverrun())
            replies += "overrun";
        if (piece == 1)
            first = replies;
        else if (replies != first)
            return {"not the same in pieces of", QByteArray::number(piece)};
    }
    return first;
}

} // namespace

class TestReplyReader final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void cuts() {
        using List = QByteArrayList;
        QCOMPARE(repliesOf("250-a\r\n250-AUTH LOGIN\r\n250 c\r\n221 d\r\n"),
                 (List{"250: 250-a\r\n250-AUTH LOGIN\r\n250 c", "221: 221 d"}));
        QCOMPARE(repliesOf("250 a\n354 b\n"), (List{"250: 250 a", "354: 354 b"}));
        QCOMPARE(repliesOf("+OK-ready\r\n\r\nabc\r\n"), (List{"+OK: +OK-ready", ": ", "ABC: abc"}));
        QCOMPARE(repliesOf("250-a\r\n250 b"), List()); // not complete
        QCOMPARE(repliesOf(QByteArray(10'000, '2')), List{"overrun"});
        QCOMPARE(repliesOf(QByteArray("250-xxxxxxxxxxxxxxxxxxxxxxxxxxxxxx\r\n").repeated(3'000)), List{"overrun"});
    }
};

QTEST_APPLESS_MAIN(TestReplyReader)
#include "test_replyreader.moc"

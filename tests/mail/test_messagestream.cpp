#include "MessageStream.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

const QDateTime when(QDate(2003, 1, 5), QTime(14, 7, 9), Qt::OffsetFromUTC, 3600);

MailMessage letter() {
    MailMessage message;
    message.from = QStringLiteral("me@example.org");
    message.recipients = {QStringLiteral("you@example.org")};
    return message;
}

QStringList addresses(int count) {
    QStringList list;
    for (int i = 0; i < count; ++i)
        list << QStringLiteral("a%1@example.org").arg(i);
    return list;
}

QByteArray compose(const MailMessage& message, QStringList* statuses = nullptr) {
    MessageStream stream(message, when);
    QByteArray text;
    while (!stream.AtEnd()) {
        const MessageStream::Block block = stream.Next();
        text += block.bytes;
        if (statuses != nullptr && !block.status.isEmpty())
            statuses->append(block.status);
    }
    return stream.Error() ? QByteArray() : text;
}

QByteArray noise(int size) {
    QByteArray bytes;
    std::uint32_t state = 12345;
    for (int i = 0; i < size; ++i) {
        state = state * 1664525 + 1013904223;
        bytes.append(static_cast<char>(static_cast<unsigned char>(state >> 24U)));
    }
    return bytes;
}

} // namespace

class TestMessageStream final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
    }
    // Qt cannot remove names that are no text.
    void cleanup() { fs::remove_all(root()); }

    void check_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<bool>("htmlInUuencode");
        QTest::addColumn<QList<int>>("counts");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* name, const char* from, bool html, const QList<int>& counts,
                            const char* error) {
            QTest::newRow(name) << QString::fromLatin1(from) << html << counts << QString::fromLatin1(error);
        };
        row("the sender comes first", "", true, {0, 0, 0}, "Missing or Invalid Sender E-mail Address");
        row("then HTML", "me@example.org", true, {0, 0, 0}, "Sending HTML requires MIME encoding");
        row("nobody", "me@example.org", false, {0, 0, 0}, "No Recipient E-mail Address Specified");
        row("a blind copy will do", "me@example.org", false, {0, 0, 1}, "");
        row("100", "me@example.org", false, {34, 33, 33}, "");
        row("101", "me@example.org", false, {34, 33, 34}, "Too many recipients");
    }
    void check() {
        QFETCH(QString, from);
        QFETCH(bool, htmlInUuencode);
        QFETCH(QList<int>, counts);
        MailMessage message;
        message.from = from;
        message.asHtml = htmlInUuencode;
        message.encoding = MailEncoding::UuEncode;
        message.recipients = addresses(counts[0]);
        message.copies = addresses(counts[1]);
        message.blindCopies = addresses(counts[2]);
        QTEST(MessageStream::Check(message), "error");
    }

    void simpleText() {
        MailMessage message = letter();
        message.fromDisplayName = QStringLiteral("Kalvenor Pro");
        message.recipients << QStringLiteral("her@example.org");
        message.recipientDisplayNames << QStringLiteral(" ") << QStringLiteral("Her");
        message.blindCopies << QStringLiteral("secret@example.org");
        message.replyTo = QStringLiteral("re@example.org");
        message.receipt = true;
        message.priority = 1;
        message.priorityWord = QStringLiteral("High");
        message.text = QStringLiteral("a\n.b");
        QCOMPARE(compose(message), QByteArray("From: \"Kalvenor Pro\" <me@example.org>\r\n"
                                              "To: you@example.org,\r\n\t\"Her\" <her@example.org>\r\n"
                                              "Subject: \r\n"
                                              "Reply-to: <re@example.org>\r\n"
                                              "Date: Sun, 5 Jan 2003 14:07:09 +0100\r\n"
                                              "MIME-Version: 1.0\r\n"
                                              "X-Priority: 1\r\n"
                                              "X-MSMail-Priority: High\r\n"
                                              "Disposition-Notification-To: \"Kalvenor Pro\" <me@example.org>\r\n"
                                              "Content-Type: text/plain;\r\n\tcharset=\"iso-8859-1\"\r\n"
                                              "Content-Transfer-Encoding: 7bit\r\n"
                                              "\r\n"
                                              "a\r\n..b\r\n.\r\n"));
    }

    void embedded_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isHtml");
        QTest::addColumn<bool>("embedded");
        QTest::newRow("referenced") << QStringLiteral("<img src=\"cid:a.b\">") << true << true;
        QTest::newRow("at the end") << QStringLiteral("cid:a.bc cid:a.b") << true << true;
        QTest::newRow("a longer name") << QStringLiteral("<img src='cid:a.bc'>") << true << false;
        QTest::newRow("no HTML") << QStringLiteral("<img src=\"cid:a.b\">") << false << false;
    }
    void embedded() {
        QFETCH(QString, text);
        QFETCH(bool, isHtml);
        QFETCH(bool, embedded);
        MailMessage message = letter();
        message.text = text;
        message.asHtml = isHtml;
        message.attachments = {file("a.b", "x"), {}};
        QStringList statuses;
        const QByteArray sent = compose(message, &statuses);
        QCOMPARE(sent.contains("Content-ID: <a.b>\r\n"), embedded);
        QCOMPARE(sent.contains(embedded ? "multipart/related;" : "multipart/mixed;"), true);
        QCOMPARE(statuses, QStringList((embedded ? QStringLiteral("Sending Embedded File, ")
                                                 : QStringLiteral("Sending Attachment, ")) +
                                       QStringLiteral("a.b...")));
    }

    void textCutBetweenSurrogates() {
        MailMessage message = letter();
        message.text = QString(4095, u'\n') + QStringLiteral(u"\U0001F600") + QString(5000, u'\n');
        QCOMPARE(compose(message).count('?'), 1);
    }

    void unreadableAttachment_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << QStringLiteral("none")
                                 << QStringLiteral("The file you tried to attach does not exist");
        QTest::newRow("folder") << QStringLiteral("folder") << QStringLiteral("Is a directory");
        QTest::newRow("fifo") << QStringLiteral("fifo") << QStringLiteral("Invalid argument");
    }
    void unreadableAttachment() {
        QFETCH(QString, name);
        QFETCH(QString, reason);
        fs::create_directory(root() / "folder");
        QCOMPARE(::mkfifo((root() / "fifo").c_str(), 0600), 0);
        MailMessage message = letter();
        message.attachments = {file("good", "good"), root() / name.toStdString()};
        MessageStream stream(message, when);
        QByteArray text;
        while (!stream.AtEnd())
            text += stream.Next().bytes;
        QCOMPARE(stream.Error().value_or(QString()), name + QStringLiteral(": ") + reason);
        QVERIFY(text.contains("good") && !text.contains("\r\n.\r\n"));
        QVERIFY(stream.Next().bytes.isEmpty());
    }

    void attachmentChangesMeanwhile_data() {
        QTest::addColumn<int>("newSize");
        QTest::addColumn<bool>("fails");
        QTest::newRow("shrinks") << 9'999 << true;
        QTest::newRow("grows") << 50'000 << false;
    }
    void attachmentChangesMeanwhile() {
        QFETCH(int, newSize);
        QFETCH(bool, fails);
        for (const MailEncoding encoding : {MailEncoding::Mime, MailEncoding::UuEncode}) {
            MailMessage message = letter();
            message.encoding = encoding;
            message.attachments = {file("data", noise(10'000))};
            const QByteArray whole = compose(message);
            MessageStream stream(message, when);
            QByteArray text;
            while (!stream.AtEnd()) {
                const MessageStream::Block block = stream.Next();
                text += block.bytes;
                if (!block.status.isEmpty())
                    fs::resize_file(message.attachments[0], static_cast<std::uintmax_t>(newSize));
            }
            QCOMPARE(stream.Error().has_value(), fails);
            if (fails)
                QVERIFY(!text.contains("\r\n.\r\n"));
            else
                QCOMPARE(text, whole);
        }
    }

    void smallBlocks() {
        for (const MailEncoding encoding : {MailEncoding::Mime, MailEncoding::UuEncode}) {
            MailMessage message = letter();
            message.encoding = encoding;
            message.text = QString(100'000, u'a');
            message.attachments = {file("data", noise(100'000))};
            MessageStream stream(message, when);
            while (!stream.AtEnd())
                QVERIFY(stream.Next().bytes.size() <= 4500);
        }
    }

    /// Another program reads what was written: names of the messages and expectations are in the script.
    void otherReaders() {
        writePlain();
        writeHtml();
        writeAttachments();
        writeHostile();
        writeLong();
        QProcess python;
        python.setProcessChannelMode(QProcess::MergedChannels);
        python.start(QStringLiteral(SYSTEM_PYTHON), {QStringLiteral(CHECK_SCRIPT), m_folder->path()});
        QVERIFY(python.waitForFinished(60'000));
        const bool agreed = python.exitStatus() == QProcess::NormalExit && python.exitCode() == 0;
        if (!agreed)
            qWarning("%s", python.readAll().constData());
        QVERIFY(agreed);
    }

  private:
    [[nodiscard]] fs::path root() const { return m_folder->path().toStdString(); }

    fs::path file(const std::string& name, const QByteArray& bytes) {
        std::ofstream stream(root() / name, std::ios::binary);
        stream.write(bytes.constData(), bytes.size());
        return root() / name;
    }

    void write(const char* name, const MailMessage& message) {
        QCOMPARE(MessageStream::Check(message), QString());
        const QByteArray text = compose(message);
        QVERIFY(text.endsWith("\r\n.\r\n"));
        QCOMPARE(text.indexOf("\r\n.\r\n"), text.size() - 5);
        file(name, text);
    }

    void writePlain() {
        MailMessage message = letter();
        message.fromDisplayName = QStringLiteral(u"Jörg \"der\" Müller, genannt <Öhm>");
        message.recipients << QStringLiteral("her@example.org");
        message.recipientDisplayNames = {QStringLiteral("Doe, \"J\\ohn\""), QStringLiteral(u"Zoë")};
        message.copies << QStringLiteral("copy@example.org");
        message.blindCopies << QStringLiteral("secret@example.org");
        message.subject = QStringLiteral(u"Grüße für 5 €: ") + QStringLiteral(u"äöü und mehr ").repeated(20);
        message.text = QStringLiteral(u".Punkt\r\n..\n.\r\rÄÖÜß € \U0001F600 Ende\n");
        write("plain.mail", message);
    }

    void writeHtml() {
        MailMessage message = letter();
        message.asHtml = true;
        message.contentBase = QStringLiteral("http://example.org/\"\r\nX-Evil: 1");
        message.text = QStringLiteral(u"<p>Über <img src=\"cid:logo.png\"></p>");
        message.attachments = {file("logo.png", noise(500)), file("list.txt", "one\n")};
        write("html.mail", message);
    }

    void writeAttachments() {
        MailMessage message = letter();
        message.text = QStringLiteral("see below");
        // 14 bytes: a line of uuencoded text that begins with a ".".
        for (const int size : {0, 1, 2, 3, 14, 45, 57, 100 * 1024})
            message.attachments.push_back(file("size" + std::to_string(size) + ".bin", noise(size)));
        write("mime.mail", message);
        message.encoding = MailEncoding::UuEncode;
        write("uuencode.mail", message);
        message.encoding = MailEncoding::Mime;
        message.attachments = {file("inner.eml", "From: a@b\r\n\r\ntext")};
        write("eml.mail", message);
    }

    void writeHostile() {
        const QString attack = QStringLiteral("x\r\nX-Evil: 1\r\n\r\n.\r\nQUIT\r\n");
        MailMessage message = letter();
        message.subject = attack;
        message.fromDisplayName = attack + u'"';
        message.recipientDisplayNames << QStringLiteral(u"ä\"") + attack;
        message.replyTo = QStringLiteral("re@example.org") + attack;
        message.priority = 1;
        message.priorityWord = attack;
        message.text = attack;
        message.attachments = {
            file("x\"\r\nX-Evil: 1\r\n\r\n.txt", "1"),
            file("a\\b\";name=c.txt", "2"),
            file("\xC3\xA4\"\\\n\xE2\x82\xAC'%.txt", "3"),
            file("\xE4\xF6\xFC.txt", "4"),
        };
        write("hostile.mail", message);
        message.encoding = MailEncoding::UuEncode;
        write("hostile-uu.mail", message);
    }

    void writeLong() {
        const QString attack = QString(985, u'a') + QStringLiteral("X-Evil:1").repeated(300);
        MailMessage message = letter();
        message.from = attack + QStringLiteral("@example.org");
        message.fromDisplayName = attack;
        message.replyTo = attack;
        message.subject = attack;
        message.text = QString(998 * 3, u'.');
        write("long.mail", message);
        message = letter();
        message.subject = QStringLiteral("word and word ").repeated(500);
        write("words.mail", message);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(TestMessageStream)
#include "test_messagestream.moc"

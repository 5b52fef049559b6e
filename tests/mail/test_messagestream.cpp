// Messages on their way to the wire, read again by another program; and what is taken for an address.
#include "HostProcess.h"
#include "MessageStream.h"
#include "SystemWorld.h"
#include "modForeignText.h"
#include "modMailEncoding.h"
#include "modRegularFile.h"
#include "modValidEMail.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

const QDateTime when(QDate(2003, 10, 5), QTime(14, 7, 9), Qt::OffsetFromUTC, -12'600);

MailMessage letter() {
    MailMessage message;
    message.from = u"me@example.org"_qs;
    message.recipients = {u"you@example.org"_qs};
    return message;
}

QByteArray compose(const MailMessage& message) {
    MessageStream stream(message, when);
    QByteArray text = stream.Next().bytes; // the header may be long
    while (!stream.AtEnd()) {
        const QByteArray piece = stream.Next().bytes;
        if (piece.size() > 4500)
            qFatal("a large mail would be held in memory");
        text += piece;
    }
    return stream.Error() ? QByteArray() : text;
}

QByteArray noise(int size) {
    QRandomGenerator random(12345);
    QByteArray bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<char>(random.bounded(256)); });
    return bytes;
}

} // namespace

class TestMessageStream final : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German)); } // dates in mails are English all the same
    void cleanupTestCase() { fs::remove_all(root()); }                     // Qt cannot remove names that are not UTF-8

    void refusesTooManyRecipients() {
        MailMessage message = letter();
        message.recipients = QStringList(34, u"a@example.org"_qs);
        message.copies = message.blindCopies = QStringList(33, u"a@example.org"_qs);
        QCOMPARE(MessageStream::Check(message), QString());
        message.blindCopies += u"a@example.org"_qs;
        QCOMPARE(MessageStream::Check(message), u"Too many recipients"_qs);
    }

    void unreadableAttachment() {
        fs::create_directory(root() / "folder");
        SystemWorld::MakeFifo(root() / "fifo");
        for (const auto& [name, condition] :
             {std::pair("missing", std::errc::no_such_file_or_directory),
              std::pair("folder", std::errc::is_a_directory), std::pair("fifo", std::errc::invalid_argument)}) {
            if (!SystemWorld::CanMake(name))
                continue;
            QFile opened;
            const std::error_code error = modRegularFile::Open(root() / name, opened);
            QVERIFY(error == condition);
            const QString reason = condition == std::errc::no_such_file_or_directory
                                       ? u"The file you tried to attach does not exist"_qs
                                       : modForeignText::OfError(error);
            MailMessage message = letter();
            message.attachments = {file("good", "good"), root() / name};
            MessageStream stream(message, when);
            QByteArray text;
            while (!stream.AtEnd())
                text += stream.Next().bytes;
            QCOMPARE(stream.Error().value_or(QString()), QLatin1String(name) + u": " + reason);
            QVERIFY(text.contains("good") && !text.contains("\r\n.\r\n"));
            QVERIFY(stream.Next().bytes.isEmpty());
        }
    }

    void attachmentChangesMeanwhile() {
        for (const MailEncoding encoding : {MailEncoding::Mime, MailEncoding::UuEncode})
            for (const unsigned newSize : {9'999U, 50'000U}) { // shrinks, grows
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
                        fs::resize_file(message.attachments[0], newSize);
                }
                QCOMPARE(stream.Error().has_value(), newSize < 10'000U);
                QCOMPARE(text == whole, newSize > 10'000U);
                QCOMPARE(text.contains("\r\n.\r\n"), newSize > 10'000U);
            }
    }

    /// The script decodes the mails with Python's own library and holds what to expect.
    void otherReaders() {
        writePlain();
        writeAttachments();
        if (SystemWorld::CanMake("hostile name"))
            writeHostile();
        writeLong();
        HostProcess python;
        python.Start({QStringLiteral(SYSTEM_PYTHON), QStringLiteral(CHECK_SCRIPT), SystemWorld::HostPath(root())});
        const QByteArray said = python.All();
        QVERIFY2(said.contains("\nOK"), said);
    }

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

    void transparency() {
        const QByteArray full(998, 'a');
        const std::pair<QByteArray, QByteArray> rows[]{
            {"a\rb\nc\n\rd\r\r\ne\n\n", "a\r\nb\r\nc\r\n\r\nd\r\n\r\ne\r\n\r\n"},
            {".a\r\n.\r\n..\nb.\r.c\r\n", "..a\r\n..\r\n...\r\nb.\r\n..c\r\n"},
            {full + "\r\nb", full + "\r\nb"},
            {full + 'a', full + "\r\na"},
            {full + ".\n", full + "\r\n..\r\n"},                     // broken before the dot
            {QByteArray(999, '.'), QByteArray(999, '.') + "\r\n.."}, // a doubled one counts once
        };
        for (const auto& [text, sent] : rows)
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

  private:
    [[nodiscard]] fs::path root() const { return m_folder.path().toStdU16String(); }

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
        message.fromDisplayName = u"Jörg \"der\" Müller, genannt <Öhm>"_qs;
        message.recipients << u"her@example.org"_qs << u"plain@example.org"_qs;
        message.recipientDisplayNames = {u"Doe, \"J\\ohn\""_qs, u"Zoë"_qs, u" "_qs};
        message.receipt = true;
        message.priority = 1;
        message.priorityWord = u"High"_qs;
        message.copies << u"copy@bücher.example"_qs;
        message.blindCopies << u"secret@example.org"_qs;
        message.subject = u"Grüße für 5 €: "_qs + u"äöü und mehr "_qs.repeated(20);
        message.text = u".Punkt\r\n..\n.\r\rÄÖÜß € \U0001F600 Ende\n"_qs;
        write("plain.mail", message);
    }

    void writeAttachments() {
        MailMessage message = letter();
        message.text = u"cid:size0.bin"_qs; // no reference outside HTML
        // 14 bytes: a line of uuencoded text that begins with a ".".
        for (const int size : {0, 1, 2, 3, 14, 45, 57, 100 * 1024})
            message.attachments.push_back(file("size" + std::to_string(size) + ".bin", noise(size)));
        write("mime.mail", message);
        message.encoding = MailEncoding::UuEncode;
        write("uuencode.mail", message);
    }

    void writeHostile() {
        const QString attack = u"x\r\nX-Evil: 1\r\n\r\n.\r\nQUIT\r\n"_qs;
        MailMessage message = letter();
        message.subject = attack;
        message.fromDisplayName = attack + u'"';
        message.recipientDisplayNames << u"ä\""_qs + attack;
        message.replyTo = u"re@example.org"_qs + attack;
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
        const QString attack = QString(985, u'a') + u"X-Evil:1"_qs.repeated(300);
        MailMessage message = letter();
        message.from = attack + u"@example.org"_qs;
        message.fromDisplayName = attack;
        message.replyTo = attack;
        message.subject = attack;
        message.text = QString(998 * 3, u'.');
        write("long.mail", message);
        message = letter();
        message.subject = u"word and word "_qs.repeated(500);
        write("words.mail", message);
    }

    const QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestMessageStream)
#include "test_messagestream.moc"

// Any mail, read again from its bytes on the wire: lines within bounds, one end mark, the header lines that belong
// there and no other, a text and an attachment that come back.
#include "MessageStream.h"
#include "Require.h"
#include "ScratchFolder.h"
#include "modMailEncoding.h"

#include <QRegularExpression>
#include <fuzzer/FuzzedDataProvider.h>

namespace {

using Lines = QList<QByteArray>;

/// As a server stores them.
Lines linesOnTheWire(const MailMessage& message) {
    MessageStream stream(message, QDateTime(QDate(2003, 10, 5), QTime(14, 7, 9), Qt::UTC));
    QByteArray wire;
    while (!stream.AtEnd())
        wire += stream.Next().bytes;
    Require(!stream.Error() && wire.endsWith("\r\n.\r\n"));
    Lines lines = wire.chopped(4).split('\n');
    for (QByteArray& line : lines) {
        Require(line.endsWith('\r') && line.count('\r') == 1 && (!line.startsWith('.') || line.startsWith("..")));
        line = line.mid(line.startsWith('.') ? 1 : 0).chopped(1);
        Require(line.size() <= 998);
    }
    return lines;
}

/// Takes the header off and gives the names in it.
QByteArray namesInHeader(Lines& lines) {
    static const QRegularExpression whole(QStringLiteral("\\A(?:([A-Z][A-Za-z-]+):|[\\t ]+[!-~])[\\t -~]*\\z"));
    Lines names;
    for (QByteArray line = lines.takeFirst(); !line.isEmpty(); line = lines.takeFirst()) {
        const auto match = whole.match(QString::fromLatin1(line));
        Require(match.hasMatch() && !lines.isEmpty());
        if (match.capturedLength(1) > 0)
            names.append(match.captured(1).toLatin1());
    }
    return names.join(' ');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScratchFolder scratch;
    FuzzedDataProvider input(data, size);
    const auto text = [&input] {
        const int times = input.ConsumeIntegralInRange(1, 50); // lines grow long without a long input
        return QString::fromStdString(input.ConsumeRandomLengthString(300)).repeated(times);
    };
    MailMessage message;
    message.encoding = input.ConsumeBool() ? MailEncoding::Mime : MailEncoding::UuEncode;
    const bool isMime = message.encoding == MailEncoding::Mime;
    message.from = message.replyTo = u"me@example.org"_qs;
    message.recipients = {u"you@example.org"_qs};
    message.fromDisplayName = text();
    message.recipientDisplayNames = {text()};
    message.subject = text();
    std::string name = 'a' + input.ConsumeRandomLengthString(200);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '/' || c == '\0'; }, '_');
    const QByteArray content = text().toUtf8();
    message.text = text();
    const auto file = scratch.Native(u"content"_qs).replace_filename(name);
    if (input.ConsumeBool()) {
        Require(scratch.Write(u"content"_qs, content));
        std::filesystem::rename(scratch.Native(u"content"_qs), file);
        message.attachments = {file};
    }
    Lines lines = linesOnTheWire(message);
    std::filesystem::remove(file);
    QByteArray names("From To Subject Reply-to Date");
    if (isMime)
        names += message.attachments.empty() ? " MIME-Version Content-Type Content-Transfer-Encoding"
                                             : " MIME-Version Content-Type";
    Require(namesInHeader(lines) == names);
    const QByteArray sent = modMailEncoding::Latin1(message.text).replace('\r', "").replace('\n', "");
    Require(message.attachments.empty() ? lines.join() == sent : lines.join().contains(sent));
    if (!isMime || message.attachments.empty())
        return 0;
    const QByteArray boundary = lines[2];
    Require(lines.takeLast() == boundary + "--");
    Lines part = lines.mid(lines.lastIndexOf(boundary) + 1);
    Require(namesInHeader(part) == "Content-Type Content-Transfer-Encoding Content-Disposition");
    Require(QByteArray::fromBase64(part.join(), QByteArray::AbortOnBase64DecodingErrors) == content);
    return 0;
}

#include "modMessageHeader.h"
#include "modHeaderLine.h"
#include "modHeaderWord.h"
#include "modLatin1.h"
#include "modMailDate.h"
#include "modMailDomain.h"

namespace {

/// A domain has an ASCII form; what stands before it has none here.
QByteArray asciiAddress(const QString& address) {
    return modHeaderWord::Ascii(QString::fromUtf8(modMailDomain::AddressToAscii(address)));
}

QByteArray party(const QString& address, const QString& displayName) {
    const QByteArray plain = asciiAddress(address);
    return displayName.trimmed().isEmpty() ? plain : modHeaderWord::Encode(displayName, true) + " <" + plain + '>';
}

QByteArray parties(const QStringList& addresses, const QStringList& displayNames) {
    QByteArray list;
    for (qsizetype i = 0; i < addresses.size(); ++i) {
        if (addresses[i].trimmed().isEmpty())
            continue;
        if (!list.isEmpty())
            list.append(",\r\n\t");
        list.append(party(addresses[i], displayNames.value(i)));
    }
    return list;
}

QByteArray mimeLines(const MailMessage& message) {
    QByteArray lines = modHeaderLine::Write("MIME-Version", "1.0");
    if (message.priority != 3) {
        lines += modHeaderLine::Write("X-Priority", QByteArray::number(message.priority));
        lines += modHeaderLine::Write("X-MSMail-Priority", modHeaderWord::Ascii(message.priorityWord));
    }
    if (message.receipt)
        lines += modHeaderLine::Write("Disposition-Notification-To", party(message.from, message.fromDisplayName));
    return lines;
}

QByteArray multipartLines(const QByteArray& boundary, bool related) {
    return modHeaderLine::Write("Content-Type", QByteArray(related ? "multipart/related" : "multipart/mixed") +
                                                    ";\r\n\tboundary=\"" + boundary + '"') +
           "\r\nThis is a multi-part message in MIME format.\r\n\r\n--" + boundary + "\r\n";
}

QByteArray bodyLines(const MailMessage& message) {
    QByteArray lines = modHeaderLine::Write("Content-Type", QByteArray(message.asHtml ? "text/html" : "text/plain") +
                                                                ";\r\n\tcharset=\"iso-8859-1\"");
    lines +=
        modHeaderLine::Write("Content-Transfer-Encoding", modLatin1::NeedsEightBits(message.text) ? "8bit" : "7bit");
    if (message.asHtml && !message.contentBase.isEmpty())
        lines += modHeaderLine::Write("Content-Base", modHeaderWord::QuotedAscii(message.contentBase));
    return lines;
}

} // namespace

QByteArray modMessageHeader::Write(const MailMessage& message, const QDateTime& when, const QByteArray& boundary,
                                   bool related) {
    QByteArray head = modHeaderLine::Write("From", party(message.from, message.fromDisplayName));
    head += modHeaderLine::Write("To", parties(message.recipients, message.recipientDisplayNames));
    if (const QByteArray copies = parties(message.copies, message.copyDisplayNames); !copies.isEmpty())
        head += modHeaderLine::Write("Cc", copies);
    head += modHeaderLine::Write("Subject", modHeaderWord::Encode(message.subject, false));
    if (!message.replyTo.isEmpty())
        head += modHeaderLine::Write("Reply-to", '<' + asciiAddress(message.replyTo) + '>');
    head += modHeaderLine::Write("Date", modMailDate::DateText(when));
    if (message.encoding == MailEncoding::Mime) {
        head += mimeLines(message);
        if (!boundary.isEmpty())
            head += multipartLines(boundary, related);
        head += bodyLines(message);
    }
    return head + "\r\n";
}

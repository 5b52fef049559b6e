#include "modMailHeader.h"
#include "modMailEncoding.h"
#include "modNativePath.h"

#include <QLocale>
#include <QMimeDatabase>
#include <algorithm>
#include <cstdlib>

namespace {

QByteArray digits(qint64 value, qsizetype width, int base = 10) {
    return QByteArray::number(value, base).toUpper().rightJustified(width, '0');
}

/// How far a zone is ahead of UTC: "+0100", "-0330". The sign is that of the hours, so a zone less than an hour behind
/// reads like one ahead.
QByteArray zoneText(int secondsAhead) {
    const int minutesAhead = secondsAhead / 60;
    const int hours = minutesAhead / 60;
    return (hours < 0 ? "-" : "+") + digits(std::abs(hours), 2) + digits(std::abs(minutesAhead) % 60, 2);
}

/// "Sun, 5 Jan 2003 14:07:09 +0100" (RFC 5322, 3.3); English in every locale.
QByteArray dateText(const QDateTime& when) {
    return QLocale::c().toString(when, u"ddd, d MMM yyyy HH:mm:ss ").toLatin1() + zoneText(when.offsetFromUtc());
}

/// One header line. The value is safe already and may be folded. A line above 998 bytes is folded by force: if a server
/// or LineTransparency broke it, its end would pass for a header line of its own.
QByteArray headerLine(const QByteArray& name, const QByteArray& value) {
    constexpr qsizetype longestLine = 990;
    QByteArray line;
    qsizetype column = 0;
    for (const char letter : QByteArray(name + ": " + value)) {
        if (letter == '\r' || letter == '\n') {
            column = 0;
        } else if (++column > longestLine) {
            line.append("\r\n\t");
            column = 2;
        }
        line.append(letter);
    }
    return line.append("\r\n");
}

/// A domain has an ASCII form; the part before the "@" has none here.
QByteArray asciiAddress(const QString& address) {
    return modMailEncoding::Ascii(QString::fromUtf8(modMailEncoding::AddressToAscii(address)));
}

QByteArray party(const QString& address, const QString& displayName) {
    const QByteArray plain = asciiAddress(address);
    return displayName.trimmed().isEmpty() ? plain
                                           : modMailEncoding::HeaderWord(displayName, true) + " <" + plain + '>';
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
    QByteArray lines = headerLine("MIME-Version", "1.0");
    if (message.priority != 3) {
        lines += headerLine("X-Priority", QByteArray::number(message.priority));
        lines += headerLine("X-MSMail-Priority", modMailEncoding::Ascii(message.priorityWord));
    }
    if (message.receipt)
        lines += headerLine("Disposition-Notification-To", party(message.from, message.fromDisplayName));
    return lines;
}

QByteArray multipartLines(const QByteArray& boundary, bool related) {
    return headerLine("Content-Type", QByteArray(related ? "multipart/related" : "multipart/mixed") +
                                          ";\r\n\tboundary=\"" + boundary + '"') +
           "\r\nThis is a multi-part message in MIME format.\r\n\r\n--" + boundary + "\r\n";
}

QByteArray bodyLines(const MailMessage& message) {
    QByteArray lines = headerLine("Content-Type", QByteArray(message.asHtml ? "text/html" : "text/plain") +
                                                      ";\r\n\tcharset=\"iso-8859-1\"");
    lines += headerLine("Content-Transfer-Encoding", modMailEncoding::NeedsEightBits(message.text) ? "8bit" : "7bit");
    if (message.asHtml && !message.contentBase.isEmpty())
        lines += headerLine("Content-Base", modMailEncoding::QuotedAscii(message.contentBase));
    return lines;
}

bool isPlain(const QString& name) {
    return std::all_of(name.begin(), name.end(), [](QChar letter) { return letter >= u' ' && letter <= u'~'; });
}

/// Always in double quotes. Encoded words contain none, and old mail programs expect them here.
QByteArray nameParameter(const QString& name) {
    const QByteArray text = modMailEncoding::HeaderWord(name, true);
    return text.startsWith('"') ? text : '"' + text + '"';
}

QByteArray fileNameParameter(const QString& name) {
    if (isPlain(name))
        return "filename=" + modMailEncoding::QuotedAscii(name);
    return "filename*=UTF-8''" + name.toUtf8().toPercentEncoding({}, QByteArrayLiteral("~"));
}

/// A part that is a message or multipart itself must not be sent in base64 (RFC 2046, 5.2.1).
QByteArray contentType(const QString& name) {
    const QByteArray type = modMailHeader::GetContentType(name);
    return type.startsWith("message/") || type.startsWith("multipart/") ? QByteArrayLiteral("application/octet-stream")
                                                                        : type;
}

/// The name as the body refers to it, as far as an identifier allows.
QByteArray identifier(const QString& name) {
    QByteArray text = name.toUtf8();
    for (char& letter : text)
        if (QByteArrayLiteral("<>\"\\").contains(letter))
            letter = '_';
    return text.toPercentEncoding(QByteArrayLiteral(" !#$%&'()*+,/:;=?@[]^`{|}"));
}

} // namespace

QByteArray modMailHeader::OfMessage(const MailMessage& message, const QDateTime& when, const QByteArray& boundary,
                                    bool related) {
    QByteArray head = headerLine("From", party(message.from, message.fromDisplayName));
    head += headerLine("To", parties(message.recipients, message.recipientDisplayNames));
    if (const QByteArray copies = parties(message.copies, message.copyDisplayNames); !copies.isEmpty())
        head += headerLine("Cc", copies);
    head += headerLine("Subject", modMailEncoding::HeaderWord(message.subject, false));
    if (!message.replyTo.isEmpty())
        head += headerLine("Reply-to", '<' + asciiAddress(message.replyTo) + '>');
    head += headerLine("Date", dateText(when));
    if (message.encoding == MailEncoding::Mime) {
        head += mimeLines(message);
        if (!boundary.isEmpty())
            head += multipartLines(boundary, related);
        head += bodyLines(message);
    }
    return head + "\r\n";
}

QString modMailHeader::AttachmentName(const std::filesystem::path& file) {
    // Only the text form of undecodable bytes gets longer; keep its end, which has the extension.
    constexpr qsizetype longestName = 255;
    QString name = modNativePath::ToText(file.filename()).right(longestName);
    for (QChar& letter : name)
        if (letter.category() == QChar::Other_Control)
            letter = u'_';
    return name;
}

QByteArray modMailHeader::OfMimePart(const QString& name, const QByteArray& boundary, bool embedded) {
    QByteArray part = "\r\n--" + boundary + "\r\n";
    part += headerLine("Content-Type", contentType(name) + ";\r\n\tname=" + nameParameter(name));
    part += headerLine("Content-Transfer-Encoding", "base64");
    part += headerLine("Content-Disposition", "attachment;\r\n\t" + fileNameParameter(name));
    if (embedded)
        part += headerLine("Content-ID", '<' + identifier(name) + '>');
    return part + "\r\n";
}

QByteArray modMailHeader::OfUuPart(const QString& name) {
    return "\r\nbegin 600 " + modMailEncoding::Latin1(name) + "\r\n";
}

QByteArray modMailHeader::GetContentType(const QString& fileName) {
    QByteArray unknown = QByteArrayLiteral("application/octet-stream");
    const qsizetype name = fileName.lastIndexOf(u'/') + 1;
    const qsizetype dot = fileName.lastIndexOf(u'.');
    if (dot < name || dot + 1 == fileName.size())
        return unknown;
    // Ask for the extension alone: the database also has patterns for whole names.
    const QList<QMimeType> types = QMimeDatabase().mimeTypesForFileName(u"file" + fileName.mid(dot));
    return types.isEmpty() ? unknown : types.first().name().toLatin1();
}

QByteArray modMailHeader::Boundary(const QDateTime& when) {
    const qint64 day = QDate(1899, 12, 30).daysTo(when.date());
    // The time of day counts in units of 10^-8 day: 1000 units are 864 ms.
    const qint64 part = (qint64{when.time().msecsSinceStartOfDay()} * 1000 + 432) / 864;
    return "----_=_NextPart_000_" + digits(day, 8, 16) + '.' + digits(part, 8, 16);
}

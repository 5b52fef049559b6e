#include "modAttachmentHeader.h"
#include "modContentType.h"
#include "modHeaderLine.h"
#include "modHeaderWord.h"
#include "modLatin1.h"
#include "modNativePath.h"

#include <algorithm>

namespace {

bool isPlain(const QString& name) {
    return std::all_of(name.begin(), name.end(), [](QChar letter) { return letter >= u' ' && letter <= u'~'; });
}

/// Between double quotes either way; encoded words hold nothing that would end them (old mail programs want them here).
QByteArray nameParameter(const QString& name) {
    const QByteArray text = modHeaderWord::Encode(name, true);
    return text.startsWith('"') ? text : '"' + text + '"';
}

QByteArray fileNameParameter(const QString& name) {
    if (isPlain(name))
        return "filename=" + modHeaderWord::QuotedAscii(name);
    return "filename*=UTF-8''" + name.toUtf8().toPercentEncoding({}, QByteArrayLiteral("~"));
}

/// Parts that are messages or multiparts themselves must not be written in base64 (RFC 2046, 5.2.1).
QByteArray contentType(const QString& name) {
    const QByteArray type = modContentType::GetContentType(name);
    return type.startsWith("message/") || type.startsWith("multipart/") ? QByteArrayLiteral("application/octet-stream")
                                                                        : type;
}

/// As the body names it, as far as an identifier can hold that.
QByteArray identifier(const QString& name) {
    QByteArray text = name.toUtf8();
    for (char& letter : text)
        if (QByteArrayLiteral("<>\"\\").contains(letter))
            letter = '_';
    return text.toPercentEncoding(QByteArrayLiteral(" !#$%&'()*+,/:;=?@[]^`{|}"));
}

} // namespace

QString modAttachmentHeader::NameOf(const std::filesystem::path& file) {
    // No name is longer, but the text form of undecodable bytes is; its end holds the extension.
    constexpr qsizetype longestName = 255;
    QString name = modNativePath::ToText(file.filename()).right(longestName);
    for (QChar& letter : name)
        if (letter.category() == QChar::Other_Control)
            letter = u'_';
    return name;
}

QByteArray modAttachmentHeader::MimePart(const QString& name, const QByteArray& boundary, bool embedded) {
    QByteArray part = "\r\n--" + boundary + "\r\n";
    part += modHeaderLine::Write("Content-Type", contentType(name) + ";\r\n\tname=" + nameParameter(name));
    part += modHeaderLine::Write("Content-Transfer-Encoding", "base64");
    part += modHeaderLine::Write("Content-Disposition", "attachment;\r\n\t" + fileNameParameter(name));
    if (embedded)
        part += modHeaderLine::Write("Content-ID", '<' + identifier(name) + '>');
    return part + "\r\n";
}

QByteArray modAttachmentHeader::UuBegin(const QString& name) {
    return "\r\nbegin 600 " + modLatin1::FromText(name) + "\r\n";
}

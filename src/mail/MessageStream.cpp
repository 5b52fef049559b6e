#include "MessageStream.h"
#include "modForeignText.h"
#include "modMailEncoding.h"
#include "modMailHeader.h"
#include "modRegularFile.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype textPiece = 4096;
constexpr qint64 mimePiece = modMailEncoding::Base64LineBytes * 54;
constexpr qint64 uuPiece = modMailEncoding::UuLineBytes * 68;

qsizetype countAddresses(const QStringList& addresses) {
    return std::count_if(addresses.begin(), addresses.end(),
                         [](const QString& address) { return !address.trimmed().isEmpty(); });
}

/// A reference ends where the file's name ends: "cid:a.png" does not refer to a file "a.pn".
bool continuesName(QChar letter) {
    return letter.isLetterOrNumber() || letter == u'.' || letter == u'-' || letter == u'_';
}

} // namespace

void LineTransparency::endLine(QByteArray& out) {
    out.append("\r\n");
    m_column = 0;
}

QByteArray LineTransparency::Pass(const QByteArray& chunk) {
    constexpr qsizetype longestLine = 998;
    QByteArray out;
    out.reserve(chunk.size() + chunk.size() / 16);
    for (const char letter : chunk) {
        const bool closesCr = m_afterCr && letter == '\n';
        m_afterCr = letter == '\r';
        if (closesCr)
            continue;
        if (letter == '\r' || letter == '\n') {
            endLine(out);
            continue;
        }
        if (m_column == longestLine)
            endLine(out);
        if (m_column == 0 && letter == '.')
            out.append('.');
        out.append(letter);
        ++m_column;
    }
    return out;
}

MessageStream::MessageStream(MailMessage message, const QDateTime& when) : m_message(std::move(message)), m_when(when) {
    std::erase_if(m_message.attachments, [](const std::filesystem::path& file) { return file.empty(); });
    if (isMime() && !m_message.attachments.empty())
        m_boundary = modMailHeader::Boundary(m_when);
}

QString MessageStream::Check(const MailMessage& message) {
    constexpr qsizetype mostAddresses = 100;
    if (message.from.trimmed().isEmpty())
        return QStringLiteral("Missing or Invalid Sender E-mail Address");
    if (message.asHtml && message.encoding == MailEncoding::UuEncode)
        return QStringLiteral("Sending HTML requires MIME encoding");
    const qsizetype addresses =
        countAddresses(message.recipients) + countAddresses(message.copies) + countAddresses(message.blindCopies);
    if (addresses == 0)
        return QStringLiteral("No Recipient E-mail Address Specified");
    return addresses > mostAddresses ? QStringLiteral("Too many recipients") : QString();
}

MessageStream::Block MessageStream::Next() {
    Block block;
    switch (m_stage) {
    case Stage::Head:
        block.bytes = head();
        break;
    case Stage::Text:
        block.bytes = text();
        break;
    case Stage::Attachment:
        block = attachment();
        break;
    case Stage::Data:
        block.bytes = data();
        break;
    case Stage::End:
        // The end mark bypasses the filter: its "." stays single.
        m_stage = Stage::Over;
        return {m_transparency.Pass(end()) + "\r\n.\r\n", {}};
    case Stage::Over:
        return {};
    }
    if (m_error)
        return {};
    block.bytes = m_transparency.Pass(block.bytes);
    return block;
}

bool MessageStream::isEmbedded(const QString& name) const {
    if (!isMime() || !m_message.asHtml)
        return false;
    const QString reference = QStringLiteral("cid:") + name;
    for (qsizetype at = m_message.text.indexOf(reference); at >= 0; at = m_message.text.indexOf(reference, at + 1)) {
        const qsizetype after = at + reference.size();
        if (after == m_message.text.size() || !continuesName(m_message.text[after]))
            return true;
    }
    return false;
}

QByteArray MessageStream::head() {
    m_stage = Stage::Text;
    const bool related = std::any_of(
        m_message.attachments.begin(), m_message.attachments.end(),
        [this](const std::filesystem::path& file) { return isEmbedded(modMailHeader::AttachmentName(file)); });
    return modMailHeader::OfMessage(m_message, m_when, m_boundary, related);
}

QByteArray MessageStream::text() {
    QStringView piece = QStringView(m_message.text).mid(m_textAt, textPiece);
    // Do not split a surrogate pair.
    const qsizetype after = m_textAt + piece.size();
    if (after < m_message.text.size() && m_message.text[after].isLowSurrogate())
        piece = QStringView(m_message.text).mid(m_textAt, piece.size() + 1);
    m_textAt += piece.size();
    if (m_textAt == m_message.text.size())
        m_stage = m_message.attachments.empty() ? Stage::End : Stage::Attachment;
    return modMailEncoding::Latin1(piece);
}

MessageStream::Block MessageStream::attachment() {
    const std::filesystem::path& file = m_message.attachments[m_attachment];
    const QString name = modMailHeader::AttachmentName(file);
    if (const std::error_code error = modRegularFile::Open(file, m_file)) {
        fail(error == std::errc::no_such_file_or_directory
                 ? QStringLiteral("The file you tried to attach does not exist")
                 : modForeignText::OfError(error));
        return {};
    }
    // A file that grows while it is sent, such as a log, is sent up to its present size: it could grow for ever.
    m_left = m_file.size();
    m_stage = Stage::Data;
    const bool embedded = isEmbedded(name);
    QByteArray bytes = isMime() ? modMailHeader::OfMimePart(name, m_boundary, embedded) : modMailHeader::OfUuPart(name);
    if (m_left == 0)
        bytes += endOfData();
    const QString status =
        embedded ? QStringLiteral("Sending Embedded File, ") : QStringLiteral("Sending Attachment, ");
    return {bytes, status + name + QStringLiteral("...")};
}

QByteArray MessageStream::data() {
    const QByteArray piece = read(std::min(m_left, isMime() ? mimePiece : uuPiece));
    if (m_error)
        return {};
    m_left -= piece.size();
    QByteArray bytes = isMime() ? modMailEncoding::Base64Lines(piece) : modMailEncoding::UuLines(piece);
    if (m_left == 0)
        bytes += endOfData();
    else if (isMime())
        bytes += "\r\n";
    return bytes;
}

QByteArray MessageStream::read(qint64 length) {
    QByteArray piece;
    while (piece.size() < length) {
        const QByteArray got = m_file.read(length - piece.size());
        if (got.isEmpty()) {
            fail(m_file.error() == QFileDevice::NoError ? QStringLiteral("The file is shorter than it was")
                                                        : m_file.errorString());
            return {};
        }
        piece += got;
    }
    return piece;
}

QByteArray MessageStream::endOfData() {
    m_file.close();
    ++m_attachment;
    m_stage = m_attachment < m_message.attachments.size() ? Stage::Attachment : Stage::End;
    return isMime() ? QByteArray() : modMailEncoding::UuEnd();
}

QByteArray MessageStream::end() {
    return m_boundary.isEmpty() ? QByteArray() : "\r\n--" + m_boundary + "--";
}

void MessageStream::fail(const QString& reason) {
    m_file.close();
    m_stage = Stage::Over;
    m_error = modMailHeader::AttachmentName(m_message.attachments[m_attachment]) + QStringLiteral(": ") + reason;
}

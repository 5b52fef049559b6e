// The text of one mail as it goes out after DATA, composed piece by piece, so that an attachment of any size takes no
// memory. Owns the attachment it is reading. If one cannot be read completely, the stream fails without the end mark:
// drop the connection then, or the server would accept a torn mail as a whole one.
#pragma once

#include "MailMessage.h"
#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <optional>

/// The last filter before the wire (RFC 5321, 4.5.2): no text can end the mail or exceed the length of a line. Keeps
/// the state of the line between chunks.
class LineTransparency final {
  public:
    /// Turns a lone CR or LF into CR LF, doubles a "." that begins a line and breaks lines after 998 bytes. The result
    /// does not depend on where the text was cut into chunks.
    [[nodiscard]] QByteArray Pass(const QByteArray& chunk);

  private:
    void endLine(QByteArray& out);

    qsizetype m_column = 0; ///< bytes of the present line; a doubled "." counts once
    bool m_afterCr = false; ///< the CR LF for a CR has gone out; an LF that follows belongs to it
};

class MessageStream final {
  public:
    struct Block {
        QByteArray bytes; ///< to be sent as they are
        QString status;   ///< to be shown before they are sent; usually empty
    };

    /// `when`: local time with its offset from UTC. The message should have passed Check.
    MessageStream(MailMessage message, const QDateTime& when);

    /// Why this message must not be sent, or "". Opens no file.
    [[nodiscard]] static QString Check(const MailMessage& message);

    /// The end mark has been handed out, or the stream has failed.
    [[nodiscard]] bool AtEnd() const { return m_stage == Stage::Over; }

    /// The next piece: the whole header first, then a few KiB at a time. Empty when the stream fails.
    [[nodiscard]] Block Next();

    /// Why the stream failed.
    [[nodiscard]] const std::optional<QString>& Error() const { return m_error; }

  private:
    enum class Stage { Head, Text, Attachment, Data, End, Over };

    [[nodiscard]] bool isMime() const { return m_message.encoding == MailEncoding::Mime; }
    [[nodiscard]] bool isEmbedded(const QString& name) const;
    [[nodiscard]] QByteArray head();
    [[nodiscard]] QByteArray text();
    [[nodiscard]] Block attachment();
    [[nodiscard]] QByteArray data();
    [[nodiscard]] QByteArray read(qint64 length);
    [[nodiscard]] QByteArray endOfData();
    [[nodiscard]] QByteArray end();
    void fail(const QString& reason);

    MailMessage m_message;
    QDateTime m_when;
    QByteArray m_boundary; ///< empty: the mail has one part only
    LineTransparency m_transparency;
    Stage m_stage = Stage::Head;
    qsizetype m_textAt = 0;
    std::size_t m_attachment = 0; ///< the present or next one
    QFile m_file;
    qint64 m_left = 0; ///< bytes of the present attachment
    std::optional<QString> m_error;
};

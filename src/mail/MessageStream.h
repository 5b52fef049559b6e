// The text of one mail as it goes out after DATA, made piece by piece while it is pulled, so that an attachment of any
// size takes no memory. Owns the attachment that is being read. When one cannot be read as a whole the stream ends
// without the end of message: drop the connection then, or the server would take a torn mail for a whole one.
#pragma once

#include "LineTransparency.h"
#include "MailMessage.h"
#include <QDateTime>
#include <QFile>
#include <optional>

class MessageStream final {
  public:
    struct Block {
        QByteArray bytes; ///< for the socket as they stand
        QString status;   ///< to be shown before they are sent; mostly empty
    };

    /// `when`: local time with its offset from UTC. The message should have passed Check.
    MessageStream(MailMessage message, const QDateTime& when);

    /// Why this message must not be sent, or "". Nothing is opened for it.
    [[nodiscard]] static QString Check(const MailMessage& message);

    /// Nothing more comes: the end of message has been handed out, or the stream has failed.
    [[nodiscard]] bool AtEnd() const { return m_stage == Stage::Over; }

    /// The next piece, a few KiB at most but for the header; empty when the stream fails.
    [[nodiscard]] Block Next();

    /// Why the stream has failed.
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

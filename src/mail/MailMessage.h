// One mail, ready to be composed. A plain value; clsSendMail checks the addresses before it fills one.
#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>
#include <vector>

enum class MailEncoding { Mime, UuEncode };

struct MailMessage {
    QString from;
    QString fromDisplayName;
    QStringList recipients;
    QStringList recipientDisplayNames; ///< by position; a missing or blank one counts as none
    QStringList copies;
    QStringList copyDisplayNames;
    QStringList blindCopies; ///< appear in the envelope only
    QString replyTo;
    QString subject;
    QString text;
    QString contentBase; ///< for HTML
    bool asHtml = false;
    bool receipt = false; ///< ask for a disposition notification
    int priority = 3;     ///< 1 high, 3 normal, 5 low
    QString priorityWord = QStringLiteral("Normal");
    MailEncoding encoding = MailEncoding::Mime;
    std::vector<std::filesystem::path> attachments;
};

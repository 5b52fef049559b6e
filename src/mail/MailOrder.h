// What an activity's record says about its notification, read once before the mail is on its way. A plain value.
#pragma once

#include <QString>

class ActivityFile;
class StringTable;

struct MailOrder {
    QString name; ///< of the activity
    QString smtpHost;
    QString recipient;
    QString sender;
    QString copies;
    QString subject;
    QString text;     ///< the body without the lines about the last access
    QString longText; ///< and with them
    QString logFile;
    QString lastFile;
    bool useDesktopClient = false;
    bool detailsWanted = false;
    bool attachLogFile = false;
    bool attachLastFile = false;

    [[nodiscard]] static MailOrder Read(const ActivityFile& file, const StringTable& texts, const QString& name,
                                        const QString& firstPath, const QString& secondPath);
};

#include "MailOrder.h"
#include "ActivityFile.h"
#include "StringTable.h"

#include <QSysInfo>

MailOrder MailOrder::Read(const ActivityFile& file, const StringTable& texts, const QString& name,
                          const QString& firstPath, const QString& secondPath) {
    const auto text = [&](const char* field) { return file.Read(name, field); };
    const auto isOn = [&](const char* field) { return text(field) == u"1"; };
    MailOrder order;
    order.name = name;
    order.smtpHost = text("SMTPHost").trimmed();
    order.recipient = text("recipient");
    order.sender = text("sender");
    order.copies = text("cc"); // the editor stores "CC": a copy recipient never arrives
    order.subject = text("subject");
    if (isOn("computername"))
        order.text = texts[Text::FromSystem] + u": " + QSysInfo::machineHostName() + u"\r\n\r\n";
    order.text += text("message");
    order.longText = order.text + u"\r\n\r\n" + texts[Text::LastAccessed] + secondPath + u" -> " + firstPath;
    order.logFile = text("logfile");
    order.lastFile = secondPath;
    order.useDesktopClient = text("UseSMTP") == u"0";
    order.detailsWanted = isOn("attachaction");
    order.attachLogFile = isOn("attachlogfile");
    order.attachLastFile = isOn("sendlastfile");
    return order;
}

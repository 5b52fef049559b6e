#include "MailOrder.h"
#include "ActivityFile.h"
#include "StringTable.h"

#include <QSysInfo>

MailOrder MailOrder::Read(const ActivityFile& file, const StringTable& texts, const QString& name,
                          const QString& firstPath, const QString& secondPath) {
    const auto text = [&](ActivityField field) { return file.Read(name, field); };
    const auto isOn = [&](ActivityField field) { return text(field) == u"1"; };
    MailOrder order;
    order.name = name;
    order.smtpHost = text(ActivityField::SmtpHost).trimmed();
    order.recipient = text(ActivityField::Recipient);
    order.sender = text(ActivityField::Sender);
    order.copies = file.ReadElement(name, "cc"); // the editor stores "CC": a copy recipient never arrives
    order.subject = text(ActivityField::Subject);
    if (isOn(ActivityField::ComputerName))
        order.text = texts[Text::FromSystem] + u": " + QSysInfo::machineHostName() + u"\r\n\r\n";
    order.text += text(ActivityField::Message);
    order.longText = order.text + u"\r\n\r\n" + texts[Text::LastAccessed] + secondPath + u" -> " + firstPath;
    order.logFile = text(ActivityField::LogFile);
    order.lastFile = secondPath;
    order.useDesktopClient = text(ActivityField::UseSmtp) == u"0";
    order.detailsWanted = isOn(ActivityField::AttachAction);
    order.attachLogFile = isOn(ActivityField::AttachLogFile);
    order.attachLastFile = isOn(ActivityField::SendLastFile);
    return order;
}
